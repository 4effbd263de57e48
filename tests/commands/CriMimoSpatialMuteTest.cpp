#include "CommandTest.h"
#include "CriMimoSpatialMuteImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriMimoSpatialMuteTest : public zyr_test::CommandTest
{
  protected:
    CriMimoSpatialMuteTest()
    {
        publishNode(node);
        transcript.clear();
    }

    zyr_test::NodeDoubles node{transcript};
    CriMimoSpatialMuteImpl impl;
};

TEST_F(CriMimoSpatialMuteTest, FrameShowsTheRequestAndTheControllerOfTheChannelIsMuted)
{
    enrol<CriMimoSpatialMuteImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriMimoSpatialMute", 7);
    tell(criMimoSpatialMute({2, true}));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.MimoSpatialMute Request: RadioChannelID: 2, Mute: 1
6 ZYR.TI.CriMimoSpatialMute:
3 ZYR.TI.CriMimoSpatialMute: muting 1, mimo on radiochannel: 2
IMimoController_2.mimoSpatialMute(true)
5 ZYR.COMM: CRI.MimoSpatialMute Response: StandardResponse Sent\n\n----------------------------------------------------\n
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriMimoSpatialMuteTest, UnmutingReachesTheControllerOfTheChannel)
{
    enrol<CriMimoSpatialMuteImpl>();
    tell(criMimoSpatialMute({1, false}));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriMimoSpatialMute: muting 0, mimo on radiochannel: 1
IMimoController_1.mimoSpatialMute(false)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriMimoSpatialMuteTest, MutingTwiceCallsTheControllerTwice)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    impl.execute({1, true});
    impl.execute({1, true});
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriMimoSpatialMute: muting 1, mimo on radiochannel: 1
IMimoController_1.mimoSpatialMute(true)
3 ZYR.TI.CriMimoSpatialMute: muting 1, mimo on radiochannel: 1
IMimoController_1.mimoSpatialMute(true)
)");
}

TEST_F(CriMimoSpatialMuteTest, ControllerThatFailsIsToldInTheTraceAndInTheResponse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.mimoController.onMimoSpatialMute.inTurn({0x8000, 0xFFFFFFFFU});
    tell(impl.execute({1, true}));
    tell(impl.execute({1, false}));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriMimoSpatialMute: muting 1, mimo on radiochannel: 1
IMimoController_1.mimoSpatialMute(true)
1 ZYR.TI.CriMimoSpatialMute: CRI.CriMimoSpatialMute failed to mute mimo diversity
result 0x8000 4 "CRI.CriMimoSpatialMute failed to mimo diversity"
prints StandardResponse Sent\n
3 ZYR.TI.CriMimoSpatialMute: muting 0, mimo on radiochannel: 1
IMimoController_1.mimoSpatialMute(false)
1 ZYR.TI.CriMimoSpatialMute: CRI.CriMimoSpatialMute failed to mute mimo diversity
result 0x8000 4 "CRI.CriMimoSpatialMute failed to mimo diversity"
prints StandardResponse Sent\n
)");
}

TEST_F(CriMimoSpatialMuteTest, WarningsOfTheControllerComeOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel2.mimoController.onMimoSpatialMute.inTurn({0x1000, 0x7FFF});
    EXPECT_EQ(outcome(impl.execute({2, true})), "result 0x0 0 \"\"");
    EXPECT_EQ(outcome(impl.execute({2, true})), "result 0x0 0 \"\"");
}

TEST_F(CriMimoSpatialMuteTest, ChannelAboveTheCountIsToldInTheSummaryAndReachesNoController)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriMimoSpatialMute", 7);
    tell(impl.execute({2, true}));
    tell(impl.execute({4294967295U, false}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriMimoSpatialMute:
3 ZYR.TI.CriMimoSpatialMute: muting 1, mimo on radiochannel: 2
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
6 ZYR.TI.CriMimoSpatialMute:
3 ZYR.TI.CriMimoSpatialMute: muting 0, mimo on radiochannel: 4294967295
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriMimoSpatialMuteTest, ChannelEqualToTheCountIsAcceptedAndOneAboveRefused)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(outcome(impl.execute({2, true})), "result 0x0 0 \"\"");
    EXPECT_EQ(outcome(impl.execute({3, true})), "result 0xA100 2 \"RadioChannelID out of bounds\"");
}

TEST_F(CriMimoSpatialMuteTest, Channel0PassesTheBoundCheckAndReachesNoController)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_THROW(impl.execute({0, true}), std::out_of_range);
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriMimoSpatialMute: muting 1, mimo on radiochannel: 0
)");
}

TEST_F(CriMimoSpatialMuteTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    EXPECT_EQ(outcome(impl.execute({})), "result 0xA100 2 \"RadioChannelID out of bounds\"");
}

TEST_F(CriMimoSpatialMuteTest, InitialiseTellsNoCountAndRefusesAnyButOneAndTwo)
{
    setTraceLevel("ZYR.TI.CriMimoSpatialMute", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriMimoSpatialMute:
1 ZYR.TI.CriMimoSpatialMute: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriMimoSpatialMute:
1 ZYR.TI.CriMimoSpatialMute: Error: numberOfChannels is out of range (3)
)x");
}

TEST_F(CriMimoSpatialMuteTest, InitialiseNamesTheMissingControllerAndKeepsTheOneBefore)
{
    withdraw("IMimoController_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(outcome(impl.execute({1, true})), "result 0x0 0 \"\"");
    EXPECT_THROW(impl.execute({2, true}), std::out_of_range);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriMimoSpatialMute:  Error getting interface to IMimoController_2
3 ZYR.TI.CriMimoSpatialMute: muting 1, mimo on radiochannel: 1
IMimoController_1.mimoSpatialMute(true)
3 ZYR.TI.CriMimoSpatialMute: muting 1, mimo on radiochannel: 2
)");
}

TEST_F(CriMimoSpatialMuteTest, SecondInitialiseFetchesTheControllersAnew)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IMimoController_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_THROW(impl.execute({1, true}), std::out_of_range);
    publish(node.channel1.mimoController);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(outcome(impl.execute({1, true})), "result 0x0 0 \"\"");
}

} // namespace
} // namespace zyr_top_api
