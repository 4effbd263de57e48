#include "CriSetOutputModeDspPpsImpl.h"
#include "DspApiFixture.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CriSetOutputModeDspPpsTest : public zyr_test::DspApiFixture
{
  protected:
    static CriSetOutputModeDspPps::Command command(std::uint32_t channel)
    {
        return {channel, PpsOutputMode::Auto};
    }

    CriSetOutputModeDspPpsImpl impl;
};

TEST_F(CriSetOutputModeDspPpsTest, FrameShowsRequestAndResponseAroundTheCallOfTheChannelsDsp)
{
    enrol<CriSetOutputModeDspPpsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.ZyrTopApi", 6);
    setTraceLevel("ZYR.TI.CriSetOutputModeDspPps", 7);
    dspApi2.channelApi.onPpsOutputModeSet = 0x7FFF;
    tell(criSetOutputModeDspPps(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriSetOutputModeDspPps::Command
5 ZYR.COMM: CRI.SetOutputModeDspPps Request: RadioChannelID: 2, PpsOutputMode: Auto\n
6 ZYR.TI.CriSetOutputModeDspPps: command.channelId=2
3 ZYR.TI.CriSetOutputModeDspPps: RadioChannelID: 2, PpsOutputMode: Auto\n
IDspChannelApi_2.ppsOutputModeSet(2)
6 ZYR.ZyrTopApi: Return StandardResponse
5 ZYR.COMM: CRI.SetOutputModeDspPps Response: StandardResponse Sent\n\n----------------------------------------------------\n
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetOutputModeDspPpsTest, FirstChannelIsItsOwn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsOutputModeSet = 0x7FFF;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetOutputModeDspPps: RadioChannelID: 1, PpsOutputMode: Auto\n
IDspChannelApi_1.ppsOutputModeSet(2)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetOutputModeDspPpsTest, DspThatFailsGivesTheFailureInTraceAndResponse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsOutputModeSet = 0x8000;
    dspApi2.channelApi.onPpsOutputModeSet = 0xFFFFFFFFU;
    tell(impl.execute(command(1)));
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetOutputModeDspPps: RadioChannelID: 1, PpsOutputMode: Auto\n
IDspChannelApi_1.ppsOutputModeSet(2)
1 ZYR.TI.CriSetOutputModeDspPps: CRI.SetOutputModeDspPps failed to set outputMode
result 0x8000 4 "CRI.SetOutputModeDspPps failed to set outputMode"
prints StandardResponse Sent\n
3 ZYR.TI.CriSetOutputModeDspPps: RadioChannelID: 2, PpsOutputMode: Auto\n
IDspChannelApi_2.ppsOutputModeSet(2)
1 ZYR.TI.CriSetOutputModeDspPps: CRI.SetOutputModeDspPps failed to set outputMode
result 0x8000 4 "CRI.SetOutputModeDspPps failed to set outputMode"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetOutputModeDspPpsTest, DspThatDoesNotSupportItSucceeds)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetOutputModeDspPps", 5);
    dspApi1.channelApi.defaultsInForce = true;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetOutputModeDspPps: RadioChannelID: 1, PpsOutputMode: Auto\n
IDspChannelApi_1.ppsOutputModeSet(2)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetOutputModeDspPpsTest, ChannelEqualToTheNumberOfChannelsIsServedAndOneAboveRefusedWithoutACall)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetOutputModeDspPps", 7);
    EXPECT_EQ(impl.execute(command(2)).tiResult, 0);
    transcript.clear();
    tell(impl.execute(command(3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetOutputModeDspPps: command.channelId=3
3 ZYR.TI.CriSetOutputModeDspPps: RadioChannelID: 3, PpsOutputMode: Auto\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetOutputModeDspPpsTest, EveryModeIsNamedAndOneWithoutANameIsHandedOnAsItIs)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    for (const std::uint32_t mode : {0U, 1U, 2U, 3U}) {
        impl.execute({1, static_cast<PpsOutputMode>(mode)});
    }
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetOutputModeDspPps: RadioChannelID: 1, PpsOutputMode: Off\n
IDspChannelApi_1.ppsOutputModeSet(0)
3 ZYR.TI.CriSetOutputModeDspPps: RadioChannelID: 1, PpsOutputMode: On\n
IDspChannelApi_1.ppsOutputModeSet(1)
3 ZYR.TI.CriSetOutputModeDspPps: RadioChannelID: 1, PpsOutputMode: Auto\n
IDspChannelApi_1.ppsOutputModeSet(2)
3 ZYR.TI.CriSetOutputModeDspPps: RadioChannelID: 1, PpsOutputMode: Unknown\n
IDspChannelApi_1.ppsOutputModeSet(3)
)");
}

} // namespace
} // namespace zyr_top_api
