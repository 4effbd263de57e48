#include "AcmHandlerDouble.h"
#include "CommandTest.h"
#include "CriEnableAcmImpl.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CriEnableAcmTest : public zyr_test::CommandTest
{
  protected:
    CriEnableAcmTest()
    {
        publish(acmHandler1);
        publish(acmHandler2);
        transcript.clear();
    }

    static CriEnableAcm::Command command(std::uint32_t channel, bool enable)
    {
        return {RadioChannel(channel), enable};
    }

    zyr_test::AcmHandlerDouble acmHandler1{transcript, "IAcmHandler_1"};
    zyr_test::AcmHandlerDouble acmHandler2{transcript, "IAcmHandler_2"};
    CriEnableAcmImpl impl;
};

TEST_F(CriEnableAcmTest, EnablingReachesTheHandlerOfTheChannel)
{
    enrol<CriEnableAcmImpl>();
    tell(criEnableAcm(command(2, true)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 2\nEnabled: 1\n
IAcmHandler_2.enableAcm(true)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, DisablingReachesTheHandlerOfTheChannel)
{
    enrol<CriEnableAcmImpl>();
    tell(criEnableAcm(command(1, false)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 1\nEnabled: 0\n
IAcmHandler_1.enableAcm(false)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, FrameShowsRequestAndResponseAtLevel5)
{
    enrol<CriEnableAcmImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriEnableAcm", 6);
    criEnableAcm(command(1, true));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.EnableAcm Request: RadioChannelID: 1\nEnabled: 1\n
6 ZYR.TI.CriEnableAcm: command.channelId=1
3 ZYR.TI.CriEnableAcm: RadioChannelID: 1\nEnabled: 1\n
IAcmHandler_1.enableAcm(true)
5 ZYR.COMM: CRI.EnableAcm Response: StandardResponse Sent\n\n----------------------------------------------------\n
)");
}

TEST_F(CriEnableAcmTest, HandlerThatFailsToEnableGivesTheFailureAndItsOwnLogText)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    acmHandler1.onEnableAcm = 0x8000;
    tell(impl.execute(command(1, true)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 1\nEnabled: 1\n
IAcmHandler_1.enableAcm(true)
1 ZYR.TI.CriEnableAcm: CRI.EnableAcm failed to Enabled ACM
result 0x8000 4 "CRI.EnableAcm failed to enable ACM"
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, HandlerThatFailsToDisableGivesTheFailureAndItsOwnLogText)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    acmHandler2.onEnableAcm = 0xFFFFFFFFU;
    tell(impl.execute(command(2, false)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 2\nEnabled: 0\n
IAcmHandler_2.enableAcm(false)
1 ZYR.TI.CriEnableAcm: CRI.EnableAcm failed to Disabled ACM
result 0x8000 4 "CRI.EnableAcm failed to disable ACM"
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, HandlersGreatestSuccessComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    acmHandler1.onEnableAcm = 0x7FFF;
    tell(impl.execute(command(1, true)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 1\nEnabled: 1\n
IAcmHandler_1.enableAcm(true)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, HandlerWithoutABodyOfItsOwnFails)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    acmHandler1.defaultsInForce = true;
    tell(impl.execute(command(1, true)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 1\nEnabled: 1\n
IAcmHandler_1.enableAcm(true)
1 ZYR.TI.CriEnableAcm: CRI.EnableAcm failed to Enabled ACM
result 0x8000 4 "CRI.EnableAcm failed to enable ACM"
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, ChannelEqualToTheNumberOfChannelsIsAcceptedAndOneAboveRefused)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(command(2, true)));
    tell(impl.execute(command(3, true)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 2\nEnabled: 1\n
IAcmHandler_2.enableAcm(true)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriEnableAcm: RadioChannelID: 3\nEnabled: 1\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, SecondChannelOfANodeWithOneIsRefused)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    tell(impl.execute(command(2, false)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 2\nEnabled: 0\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, RefusedChannelIsSilentAtAllLevelsButEntryAndSummary)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriEnableAcm", 7);
    impl.execute(command(4294967295U, true));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriEnableAcm: command.channelId=4294967295
3 ZYR.TI.CriEnableAcm: RadioChannelID: 4294967295\nEnabled: 1\n
)");
}

TEST_F(CriEnableAcmTest, Channel0PassesTheBoundCheckAndReachesNoHandler)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, true)); }), "IAcmHandler of radio channel 0");
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 0\nEnabled: 1\n
)");
}

TEST_F(CriEnableAcmTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    tell(impl.execute(command(1, true)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 1\nEnabled: 1\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, NothingIsKeptBetweenCalls)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    acmHandler1.onEnableAcm.inTurn({0x8000, eACMH_S_OK});
    EXPECT_EQ(impl.execute(command(1, true)).tiResult, 0x8000);
    EXPECT_EQ(impl.execute(command(1, true)).tiResult, 0);
}

TEST_F(CriEnableAcmTest, InitialiseRefusesZeroAndThreeChannelsAndStoresNothing)
{
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(4294967295U), 0xA100);
    tell(impl.execute(command(1, true)));
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriEnableAcm: Error: numberOfChannels is out of range (0)
1 ZYR.TI.CriEnableAcm: Error: numberOfChannels is out of range (3)
1 ZYR.TI.CriEnableAcm: Error: numberOfChannels is out of range (4294967295)
3 ZYR.TI.CriEnableAcm: RadioChannelID: 1\nEnabled: 1\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, InitialiseNamesTheMissingHandlerAndKeepsTheOneBefore)
{
    withdraw("IAcmHandler_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    tell(impl.execute(command(1, true)));
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriEnableAcm:  Error getting interface to IAcmHandler_2
3 ZYR.TI.CriEnableAcm: RadioChannelID: 1\nEnabled: 1\n
IAcmHandler_1.enableAcm(true)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriEnableAcmTest, InitialiseTriesNoChannelBehindAMissingHandler)
{
    withdraw("IAcmHandler_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriEnableAcm:  Error getting interface to IAcmHandler_1
)");
    EXPECT_EQ(missingIn([&] { impl.execute(command(2, true)); }), "IAcmHandler of radio channel 2");
}

TEST_F(CriEnableAcmTest, InitialiseOfOneChannelNeedsNoSecondHandler)
{
    withdraw("IAcmHandler_2");
    setTraceLevel("ZYR.TI.CriEnableAcm", 7);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriEnableAcm:
)");
}

TEST_F(CriEnableAcmTest, SecondInitialiseFetchesTheHandlersAnew)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IAcmHandler_1");
    zyr_test::AcmHandlerDouble other(transcript, "other");
    publish("IAcmHandler_1", other);
    EXPECT_EQ(impl.initialize(2), 0);
    impl.execute(command(1, true));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriEnableAcm: RadioChannelID: 1\nEnabled: 1\n
other.enableAcm(true)
)");
}

} // namespace
} // namespace zyr_top_api
