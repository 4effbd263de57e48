#include "CommandTest.h"
#include "CriXpicSlaveMuteImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriXpicSlaveMuteTest : public zyr_test::CommandTest
{
  protected:
    CriXpicSlaveMuteTest()
    {
        publishNode(node);
        transcript.clear();
    }

    zyr_test::NodeDoubles node{transcript};
    CriXpicSlaveMuteImpl impl;
};

TEST_F(CriXpicSlaveMuteTest, FrameShowsTheRequestAndTheControllerOfTheChannelIsMuted)
{
    enrol<CriXpicSlaveMuteImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriXpicSlaveMute", 7);
    tell(criXpicSlaveMute({2, true}));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.XpicSlaveMute Request: RadioChannelID: 2, Mute: 1
6 ZYR.TI.CriXpicSlaveMute:
3 ZYR.TI.CriXpicSlaveMute: muting 1, slave on radiochannel: 2
ICcdpController_2.xpicMute(true)
5 ZYR.COMM: CRI.XpicSlaveMute Response: StandardResponse Sent\n\n----------------------------------------------------\n
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriXpicSlaveMuteTest, UnmutingReachesTheControllerOfTheChannel)
{
    enrol<CriXpicSlaveMuteImpl>();
    tell(criXpicSlaveMute({1, false}));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriXpicSlaveMute: muting 0, slave on radiochannel: 1
ICcdpController_1.xpicMute(false)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriXpicSlaveMuteTest, MutingTwiceCallsTheControllerTwice)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    impl.execute({1, true});
    impl.execute({1, true});
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriXpicSlaveMute: muting 1, slave on radiochannel: 1
ICcdpController_1.xpicMute(true)
3 ZYR.TI.CriXpicSlaveMute: muting 1, slave on radiochannel: 1
ICcdpController_1.xpicMute(true)
)");
}

TEST_F(CriXpicSlaveMuteTest, ControllerThatFailsIsToldInTheTraceAndInTheResponse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.ccdpController.onXpicMute.inTurn({0x8000, 0xFFFFFFFFU});
    tell(impl.execute({1, true}));
    tell(impl.execute({1, false}));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriXpicSlaveMute: muting 1, slave on radiochannel: 1
ICcdpController_1.xpicMute(true)
1 ZYR.TI.CriXpicSlaveMute: CRI.XpicSlaveMute failed to mute xpic slave
result 0x8000 4 "CRI.XpicSlaveMute failed to mute xpic slave"
prints StandardResponse Sent\n
3 ZYR.TI.CriXpicSlaveMute: muting 0, slave on radiochannel: 1
ICcdpController_1.xpicMute(false)
1 ZYR.TI.CriXpicSlaveMute: CRI.XpicSlaveMute failed to mute xpic slave
result 0x8000 4 "CRI.XpicSlaveMute failed to mute xpic slave"
prints StandardResponse Sent\n
)");
}

TEST_F(CriXpicSlaveMuteTest, WarningsOfTheControllerComeOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel2.ccdpController.onXpicMute.inTurn({0x1000, 0x7FFF});
    EXPECT_EQ(outcome(impl.execute({2, true})), "result 0x0 0 \"\"");
    EXPECT_EQ(outcome(impl.execute({2, true})), "result 0x0 0 \"\"");
}

TEST_F(CriXpicSlaveMuteTest, ChannelAboveTheCountIsToldInTheSummaryAndReachesNoController)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriXpicSlaveMute", 7);
    tell(impl.execute({2, true}));
    tell(impl.execute({4294967295U, false}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriXpicSlaveMute:
3 ZYR.TI.CriXpicSlaveMute: muting 1, slave on radiochannel: 2
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
6 ZYR.TI.CriXpicSlaveMute:
3 ZYR.TI.CriXpicSlaveMute: muting 0, slave on radiochannel: 4294967295
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriXpicSlaveMuteTest, ChannelEqualToTheCountIsAcceptedAndOneAboveRefused)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(outcome(impl.execute({2, true})), "result 0x0 0 \"\"");
    EXPECT_EQ(outcome(impl.execute({3, true})), "result 0xA100 2 \"RadioChannelID out of bounds\"");
}

TEST_F(CriXpicSlaveMuteTest, Channel0PassesTheBoundCheckAndReachesNoController)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_THROW(impl.execute({0, true}), std::out_of_range);
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriXpicSlaveMute: muting 1, slave on radiochannel: 0
)");
}

TEST_F(CriXpicSlaveMuteTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    EXPECT_EQ(outcome(impl.execute({})), "result 0xA100 2 \"RadioChannelID out of bounds\"");
}

TEST_F(CriXpicSlaveMuteTest, InitialiseTellsNoCountAndRefusesAnyButOneAndTwo)
{
    setTraceLevel("ZYR.TI.CriXpicSlaveMute", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriXpicSlaveMute:
1 ZYR.TI.CriXpicSlaveMute: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriXpicSlaveMute:
1 ZYR.TI.CriXpicSlaveMute: Error: numberOfChannels is out of range (3)
)x");
}

TEST_F(CriXpicSlaveMuteTest, InitialiseNamesTheMissingControllerAndKeepsTheOneBefore)
{
    withdraw("ICcdpController_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(outcome(impl.execute({1, true})), "result 0x0 0 \"\"");
    EXPECT_THROW(impl.execute({2, true}), std::out_of_range);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriXpicSlaveMute:  Error getting interface to ICcdpController_2
3 ZYR.TI.CriXpicSlaveMute: muting 1, slave on radiochannel: 1
ICcdpController_1.xpicMute(true)
3 ZYR.TI.CriXpicSlaveMute: muting 1, slave on radiochannel: 2
)");
}

TEST_F(CriXpicSlaveMuteTest, SecondInitialiseFetchesTheControllersAnew)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("ICcdpController_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_THROW(impl.execute({1, true}), std::out_of_range);
    publish(node.channel1.ccdpController);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(outcome(impl.execute({1, true})), "result 0x0 0 \"\"");
}

} // namespace
} // namespace zyr_top_api
