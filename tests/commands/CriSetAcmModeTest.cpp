#include "CommandTest.h"
#include "CriSetAcmModeImpl.h"
#include "DspApiDouble.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriSetAcmModeTest : public zyr_test::CommandTest
{
  protected:
    CriSetAcmModeTest()
    {
        publish(dspApi1);
        publish(dspApi2);
        transcript.clear();
    }

    static CriSetAcmMode::Command command(std::uint32_t channel, AcmMode mode, AcmModePosition position)
    {
        return {RadioChannel(channel), mode, position};
    }

    zyr_test::DspApiDouble dspApi1{transcript, "IDspApi_1"};
    zyr_test::DspApiDouble dspApi2{transcript, "IDspApi_2"};
    CriSetAcmModeImpl impl;
};

TEST_F(CriSetAcmModeTest, ModeAndPositionReachTheDspOfTheChannel)
{
    enrol<CriSetAcmModeImpl>();
    tell(criSetAcmMode(command(2, AcmMode::Basic, AcmModePosition::External)));
    tell(criSetAcmMode(command(1, AcmMode::Passive, AcmModePosition::Internal)));
    tell(criSetAcmMode(command(1, AcmMode::Active, AcmModePosition::External)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 2, AcmMode: Basic, AcmModePosition: External\n
IDspAcmApi_2.setAcmMode(2, 1)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 1, AcmMode: Passive, AcmModePosition: Internal\n
IDspAcmApi_1.setAcmMode(1, 0)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 1, AcmMode: Active, AcmModePosition: External\n
IDspAcmApi_1.setAcmMode(0, 1)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetAcmModeTest, FrameShowsRequestAndResponseAtLevel5)
{
    enrol<CriSetAcmModeImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriSetAcmMode", 7);
    criSetAcmMode(command(1, AcmMode::Passive, AcmModePosition::External));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.SetAcmMode Request: RadioChannelID: 1, AcmMode: Passive, AcmModePosition: External\n
6 ZYR.TI.CriSetAcmMode: command.channelId=1
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 1, AcmMode: Passive, AcmModePosition: External\n
IDspAcmApi_1.setAcmMode(1, 1)
5 ZYR.COMM: CRI.SetAcmMode Response: StandardResponse Sent\n\n----------------------------------------------------\n
)");
}

TEST_F(CriSetAcmModeTest, UndefinedValuesGoToTheDspAsTheyAre)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(command(1, AcmMode::Undefined, AcmModePosition::Undefined)));
    tell(impl.execute(command(2, static_cast<AcmMode>(4), static_cast<AcmModePosition>(3))));
    tell(impl.execute(
        command(2, static_cast<AcmMode>(4294967295U), static_cast<AcmModePosition>(2147483648U))));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 1, AcmMode: Undefined, AcmModePosition: Undefined\n
IDspAcmApi_1.setAcmMode(3, 2)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 2, AcmMode: Undefined, AcmModePosition: Undefined\n
IDspAcmApi_2.setAcmMode(4, 3)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 2, AcmMode: Undefined, AcmModePosition: Undefined\n
IDspAcmApi_2.setAcmMode(4294967295, 2147483648)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetAcmModeTest, DspThatFailsGivesTheFailureAndItsOwnLogText)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const unsigned result : {0x8000U, 0x8001U, 0xFFFFFFFFU}) {
        transcript.clear();
        dspApi1.acmApi.onSetAcmMode = result;
        tell(impl.execute(command(1, AcmMode::Basic, AcmModePosition::Internal)));
        EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 1, AcmMode: Basic, AcmModePosition: Internal\n
IDspAcmApi_1.setAcmMode(2, 0)
1 ZYR.TI.CriSetAcmMode: CRI.CriSetAcmMode failed to set ACM mode
result 0x8000 4 "CRI.SetAcmMode failed to set ACM mode"
prints StandardResponse Sent\n
)");
    }
}

TEST_F(CriSetAcmModeTest, DspsGreatestSuccessComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.acmApi.onSetAcmMode = 0x7FFF;
    tell(impl.execute(command(1, AcmMode::Active, AcmModePosition::Internal)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 1, AcmMode: Active, AcmModePosition: Internal\n
IDspAcmApi_1.setAcmMode(0, 0)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetAcmModeTest, ChannelEqualToTheNumberOfChannelsIsAcceptedAndOneAboveRefusedInSilence)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetAcmMode", 7);
    tell(impl.execute(command(1, AcmMode::Basic, AcmModePosition::External)));
    tell(impl.execute(command(2, AcmMode::Basic, AcmModePosition::External)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetAcmMode: command.channelId=1
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 1, AcmMode: Basic, AcmModePosition: External\n
IDspAcmApi_1.setAcmMode(2, 1)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.CriSetAcmMode: command.channelId=2
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 2, AcmMode: Basic, AcmModePosition: External\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetAcmModeTest, Channel0PassesTheBoundCheckAndReachesNoDsp)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, AcmMode::Active, AcmModePosition::Internal)); }),
              "IDspApi of radio channel 0");
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 0, AcmMode: Active, AcmModePosition: Internal\n
)");
}

TEST_F(CriSetAcmModeTest, DspWithoutItsAcmPartIsNamed)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi2.onGetAcmApi = nullptr;
    try {
        impl.execute(command(2, AcmMode::Active, AcmModePosition::Internal));
        FAIL() << "no exception";
    } catch (const std::out_of_range& exception) {
        EXPECT_STREQ(exception.what(), "IDspAcmApi of radio channel 2");
    }
}

TEST_F(CriSetAcmModeTest, NothingIsKeptBetweenCalls)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.acmApi.onSetAcmMode.inTurn({0x8000, eTI_S_OK});
    EXPECT_EQ(impl.execute(command(1, AcmMode::Active, AcmModePosition::Internal)).tiResult, 0x8000);
    EXPECT_EQ(impl.execute(command(1, AcmMode::Active, AcmModePosition::Internal)).tiResult, 0);
}

TEST_F(CriSetAcmModeTest, InitialiseRefusesOtherCountsAndNamesTheMissingDsp)
{
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriSetAcmMode: Error: numberOfChannels is out of range (0)
1 ZYR.TI.CriSetAcmMode: Error: numberOfChannels is out of range (3)
1 ZYR.TI.CriSetAcmMode:  Error getting interface to IDspApi_2
)");
}

TEST_F(CriSetAcmModeTest, FailedInitialiseLeavesTheChannelsBeforeTheMissingOneUsable)
{
    setTraceLevel("ZYR.TI.CriSetAcmMode", 6);
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.execute(command(1, AcmMode::Basic, AcmModePosition::External)).tiResult, 0);
    EXPECT_EQ(missingIn([&] { impl.execute(command(2, AcmMode::Basic, AcmModePosition::External)); }),
              "IDspApi of radio channel 2");
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetAcmMode:
1 ZYR.TI.CriSetAcmMode:  Error getting interface to IDspApi_2
6 ZYR.TI.CriSetAcmMode: command.channelId=1
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 1, AcmMode: Basic, AcmModePosition: External\n
IDspAcmApi_1.setAcmMode(2, 1)
6 ZYR.TI.CriSetAcmMode: command.channelId=2
3 ZYR.TI.CriSetAcmMode: RadioChannelID: 2, AcmMode: Basic, AcmModePosition: External\n
)");
}

} // namespace
} // namespace zyr_top_api
