#include "CommandTest.h"
#include "CriSetAcmRlpControlImpl.h"
#include "DspApiDouble.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriSetAcmRlpControlTest : public zyr_test::CommandTest
{
  protected:
    CriSetAcmRlpControlTest()
    {
        publish(dspApi1);
        publish(dspApi2);
        transcript.clear();
    }

    static CriSetAcmRlpControl::Command command(std::uint32_t channel, std::uint32_t control)
    {
        return {RadioChannel(channel), static_cast<AcmRlpControl>(control)};
    }

    zyr_test::DspApiDouble dspApi1{transcript, "IDspApi_1"};
    zyr_test::DspApiDouble dspApi2{transcript, "IDspApi_2"};
    CriSetAcmRlpControlImpl impl;
};

TEST_F(CriSetAcmRlpControlTest, ControlReachesTheDspOfTheChannelUndefinedOnesToo)
{
    enrol<CriSetAcmRlpControlImpl>();
    tell(criSetAcmRlpControl(command(1, 0)));
    tell(criSetAcmRlpControl(command(2, 1)));
    tell(criSetAcmRlpControl(command(1, 2)));
    tell(criSetAcmRlpControl(command(2, 3)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 1, AcmRlpControl: Normal\n
IDspAcmApi_1.setAcmRlpControl(0)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 2, AcmRlpControl: ActiveTx\n
IDspAcmApi_2.setAcmRlpControl(1)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 1, AcmRlpControl: StandbyTx\n
IDspAcmApi_1.setAcmRlpControl(2)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 2, AcmRlpControl: Undefined\n
IDspAcmApi_2.setAcmRlpControl(3)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetAcmRlpControlTest, ControlAbove3PrintsNothingBehindItsLabel)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    impl.execute(command(1, 4));
    impl.execute(command(2, 4294967295U));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 1, AcmRlpControl: \n
IDspAcmApi_1.setAcmRlpControl(4)
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 2, AcmRlpControl: \n
IDspAcmApi_2.setAcmRlpControl(4294967295)
)");
}

TEST_F(CriSetAcmRlpControlTest, FrameShowsRequestAndResponseAtLevel5)
{
    enrol<CriSetAcmRlpControlImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriSetAcmRlpControl", 7);
    criSetAcmRlpControl(command(2, 2));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.SetAcmRlpControl Request: RadioChannelID: 2, AcmRlpControl: StandbyTx\n
6 ZYR.TI.CriSetAcmRlpControl: command.channelId=2
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 2, AcmRlpControl: StandbyTx\n
IDspAcmApi_2.setAcmRlpControl(2)
5 ZYR.COMM: CRI.SetAcmRlpControl Response: StandardResponse Sent\n\n----------------------------------------------------\n
)");
}

TEST_F(CriSetAcmRlpControlTest, DspFailsFrom0x8000AndSucceedsBelow)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.acmApi.onSetAcmRlpControl.inTurn({0x7FFF, 0x8000, 0xFFFFFFFFU});
    tell(impl.execute(command(1, 1)));
    tell(impl.execute(command(1, 1)));
    tell(impl.execute(command(1, 2)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 1, AcmRlpControl: ActiveTx\n
IDspAcmApi_1.setAcmRlpControl(1)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 1, AcmRlpControl: ActiveTx\n
IDspAcmApi_1.setAcmRlpControl(1)
1 ZYR.TI.CriSetAcmRlpControl: CRI.CriSetAcmRlpControl failed to set ACM RLP control
result 0x8000 4 "CRI.CriSetAcmRlpControl failed to set ACM RLP control"
prints StandardResponse Sent\n
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 1, AcmRlpControl: StandbyTx\n
IDspAcmApi_1.setAcmRlpControl(2)
1 ZYR.TI.CriSetAcmRlpControl: CRI.CriSetAcmRlpControl failed to set ACM RLP control
result 0x8000 4 "CRI.CriSetAcmRlpControl failed to set ACM RLP control"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetAcmRlpControlTest, ChannelEqualToTheNumberOfChannelsIsAcceptedAndOneAboveRefusedInSilence)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetAcmRlpControl", 7);
    tell(impl.execute(command(2, 0)));
    tell(impl.execute(command(3, 0)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetAcmRlpControl: command.channelId=2
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 2, AcmRlpControl: Normal\n
IDspAcmApi_2.setAcmRlpControl(0)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.CriSetAcmRlpControl: command.channelId=3
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 3, AcmRlpControl: Normal\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetAcmRlpControlTest, Channel0AndADspWithoutItsAcmPartAreNamed)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi2.onGetAcmApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, 1)); }), "IDspApi of radio channel 0");
    try {
        impl.execute(command(2, 1));
        FAIL() << "no exception";
    } catch (const std::out_of_range& exception) {
        EXPECT_STREQ(exception.what(), "IDspAcmApi of radio channel 2");
    }
}

TEST_F(CriSetAcmRlpControlTest, InitialiseRefusesOtherCountsAndNamesTheMissingDsp)
{
    setTraceLevel("ZYR.TI.CriSetAcmRlpControl", 6);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetAcmRlpControl:
1 ZYR.TI.CriSetAcmRlpControl: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriSetAcmRlpControl:
1 ZYR.TI.CriSetAcmRlpControl: Error: numberOfChannels is out of range (3)
6 ZYR.TI.CriSetAcmRlpControl:
1 ZYR.TI.CriSetAcmRlpControl:  Error getting interface to IDspApi_2
6 ZYR.TI.CriSetAcmRlpControl:
)");
}

TEST_F(CriSetAcmRlpControlTest, FailedInitialiseLeavesTheChannelsBeforeTheMissingOneUsable)
{
    setTraceLevel("ZYR.TI.CriSetAcmRlpControl", 7);
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    tell(impl.execute(command(1, 1)));
    EXPECT_EQ(missingIn([&] { impl.execute(command(2, 2)); }), "IDspApi of radio channel 2");
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetAcmRlpControl:
1 ZYR.TI.CriSetAcmRlpControl:  Error getting interface to IDspApi_2
6 ZYR.TI.CriSetAcmRlpControl: command.channelId=1
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 1, AcmRlpControl: ActiveTx\n
IDspAcmApi_1.setAcmRlpControl(1)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.CriSetAcmRlpControl: command.channelId=2
3 ZYR.TI.CriSetAcmRlpControl: RadioChannelID: 2, AcmRlpControl: StandbyTx\n
)");
}

} // namespace
} // namespace zyr_top_api
