#include "CriSetSourceDspPpsImpl.h"
#include "DspApiFixture.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CriSetSourceDspPpsTest : public zyr_test::DspApiFixture
{
  protected:
    static CriSetSourceDspPps::Command command(std::uint32_t channel)
    {
        return {channel, PpsSource::PeerSC, 4294967295U};
    }

    CriSetSourceDspPpsImpl impl;
};

TEST_F(CriSetSourceDspPpsTest, FrameShowsRequestAndResponseAroundTheCallOfTheChannelsDsp)
{
    enrol<CriSetSourceDspPpsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.ZyrTopApi", 6);
    setTraceLevel("ZYR.TI.CriSetSourceDspPps", 7);
    dspApi2.channelApi.onPpsConfigure = 0x7FFF;
    tell(criSetSourceDspPps(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriSetSourceDspPps::Command
5 ZYR.COMM: CRI.SetSourceDspPps Request: RadioChannelID: 2, PpsSource: PeerSC, PpsOffsetNanoSec: 4294967295\n
6 ZYR.TI.CriSetSourceDspPps: command.channelId=2
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 2, PpsSource: PeerSC, PpsOffsetNanoSec: 4294967295\n
IDspChannelApi_2.ppsConfigure(2, 4294967295)
6 ZYR.ZyrTopApi: Return StandardResponse
5 ZYR.COMM: CRI.SetSourceDspPps Response: StandardResponse Sent\n\n----------------------------------------------------\n
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetSourceDspPpsTest, FirstChannelIsItsOwn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsConfigure = 0x7FFF;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 1, PpsSource: PeerSC, PpsOffsetNanoSec: 4294967295\n
IDspChannelApi_1.ppsConfigure(2, 4294967295)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetSourceDspPpsTest, DspThatFailsGivesTheFailureInTraceAndResponse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsConfigure = 0x8000;
    dspApi2.channelApi.onPpsConfigure = 0xFFFFFFFFU;
    tell(impl.execute(command(1)));
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 1, PpsSource: PeerSC, PpsOffsetNanoSec: 4294967295\n
IDspChannelApi_1.ppsConfigure(2, 4294967295)
1 ZYR.TI.CriSetSourceDspPps: CRI.SetSourceDspPps failed to configure
result 0x8000 4 "CRI.SetSourceDspPps failed to configure"
prints StandardResponse Sent\n
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 2, PpsSource: PeerSC, PpsOffsetNanoSec: 4294967295\n
IDspChannelApi_2.ppsConfigure(2, 4294967295)
1 ZYR.TI.CriSetSourceDspPps: CRI.SetSourceDspPps failed to configure
result 0x8000 4 "CRI.SetSourceDspPps failed to configure"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetSourceDspPpsTest, DspThatDoesNotSupportItSucceeds)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetSourceDspPps", 5);
    dspApi1.channelApi.defaultsInForce = true;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 1, PpsSource: PeerSC, PpsOffsetNanoSec: 4294967295\n
IDspChannelApi_1.ppsConfigure(2, 4294967295)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetSourceDspPpsTest, ChannelEqualToTheNumberOfChannelsIsServedAndOneAboveRefusedWithoutACall)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetSourceDspPps", 7);
    EXPECT_EQ(impl.execute(command(2)).tiResult, 0);
    transcript.clear();
    tell(impl.execute(command(3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetSourceDspPps: command.channelId=3
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 3, PpsSource: PeerSC, PpsOffsetNanoSec: 4294967295\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetSourceDspPpsTest, EverySourceIsNamedAndOneWithoutANameIsHandedOnAsItIs)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    for (const std::uint32_t source : {0U, 1U, 2U, 3U, 4U, 7U}) {
        impl.execute({1, static_cast<PpsSource>(source), 100 + source});
    }
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 1, PpsSource: Internal, PpsOffsetNanoSec: 100\n
IDspChannelApi_1.ppsConfigure(0, 100)
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 1, PpsSource: External, PpsOffsetNanoSec: 101\n
IDspChannelApi_1.ppsConfigure(1, 101)
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 1, PpsSource: PeerSC, PpsOffsetNanoSec: 102\n
IDspChannelApi_1.ppsConfigure(2, 102)
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 1, PpsSource: External2, PpsOffsetNanoSec: 103\n
IDspChannelApi_1.ppsConfigure(3, 103)
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 1, PpsSource: Unknown, PpsOffsetNanoSec: 104\n
IDspChannelApi_1.ppsConfigure(4, 104)
3 ZYR.TI.CriSetSourceDspPps: RadioChannelID: 1, PpsSource: Unknown, PpsOffsetNanoSec: 107\n
IDspChannelApi_1.ppsConfigure(7, 107)
)");
}

} // namespace
} // namespace zyr_top_api
