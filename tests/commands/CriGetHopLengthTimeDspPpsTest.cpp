#include "CriGetHopLengthTimeDspPpsImpl.h"
#include "DspApiFixture.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CriGetHopLengthTimeDspPpsTest : public zyr_test::DspApiFixture
{
  protected:
    static CriGetHopLengthTimeDspPps::Command command(std::uint32_t channel) { return {channel}; }

    CriGetHopLengthTimeDspPpsImpl impl;
};

TEST_F(CriGetHopLengthTimeDspPpsTest, FrameShowsRequestAndResponseAroundTheCallOfTheChannelsDsp)
{
    enrol<CriGetHopLengthTimeDspPpsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.ZyrTopApi", 6);
    setTraceLevel("ZYR.CriGetHopLengthTimeDspPps", 7);
    dspApi2.channelApi.onPpsHopLengthTimeGet = {0x7FFF, 4294967295U};
    tell(criGetHopLengthTimeDspPps(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriGetHopLengthTimeDspPps::Command
5 ZYR.COMM: CRI.GetHopLengthTimeDspPps Request: RadioChannelID: 2\n
6 ZYR.CriGetHopLengthTimeDspPps: command.channelId=2
IDspChannelApi_2.ppsHopLengthTimeGet()
5 ZYR.CriGetHopLengthTimeDspPps: DSP PPS hop length time [nsec] = 4294967295
6 ZYR.ZyrTopApi: Return CriGetHopLengthTimeDspPps::Response
5 ZYR.COMM: CRI.GetHopLengthTimeDspPps Response: PpsHopLengthTime: 4294967295\n\n----------------------------------------------------\n
result 0x0 0 ""
prints PpsHopLengthTime: 4294967295\n
)");
}

TEST_F(CriGetHopLengthTimeDspPpsTest, FirstChannelIsItsOwn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsHopLengthTimeGet = {0x7FFF, 4294967295U};
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.ppsHopLengthTimeGet()
result 0x0 0 ""
prints PpsHopLengthTime: 4294967295\n
)");
}

TEST_F(CriGetHopLengthTimeDspPpsTest, DspThatFailsGivesTheFailureInTraceAndResponse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsHopLengthTimeGet = 0x8000;
    dspApi2.channelApi.onPpsHopLengthTimeGet = 0xFFFFFFFFU;
    tell(impl.execute(command(1)));
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.ppsHopLengthTimeGet()
1 ZYR.CriGetHopLengthTimeDspPps: CRI.GetHopLengthTimeDspPps failed to get hop length time.
result 0x8000 4 "CRI.GetHopLengthTimeDspPps failed to get hop length time."
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetHopLengthTimeDspPps failed to get hop length time.
IDspChannelApi_2.ppsHopLengthTimeGet()
1 ZYR.CriGetHopLengthTimeDspPps: CRI.GetHopLengthTimeDspPps failed to get hop length time.
result 0x8000 4 "CRI.GetHopLengthTimeDspPps failed to get hop length time."
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetHopLengthTimeDspPps failed to get hop length time.
)");
}

TEST_F(CriGetHopLengthTimeDspPpsTest, DspThatDoesNotSupportItSucceedsWithTheInitialValues)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.CriGetHopLengthTimeDspPps", 5);
    dspApi1.channelApi.defaultsInForce = true;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.ppsHopLengthTimeGet()
5 ZYR.CriGetHopLengthTimeDspPps: DSP PPS hop length time [nsec] = 0
result 0x0 0 ""
prints PpsHopLengthTime: 0\n
)");
}

TEST_F(CriGetHopLengthTimeDspPpsTest, ChannelEqualToTheNumberOfChannelsIsServedAndOneAboveRefusedWithoutACall)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.CriGetHopLengthTimeDspPps", 7);
    EXPECT_EQ(impl.execute(command(2)).tiResult, 0);
    transcript.clear();
    tell(impl.execute(command(3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.CriGetHopLengthTimeDspPps: command.channelId=3
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
}

TEST_F(CriGetHopLengthTimeDspPpsTest, EachCallGivesWhatTheDspAnswersThen)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsHopLengthTimeGet.inTurn({{eTI_S_OK, 16678U}, {eTI_S_OK, 16679U}});
    dspApi2.channelApi.onPpsHopLengthTimeGet = {eTI_S_OK, 33000U};
    EXPECT_EQ(impl.execute(command(1)).ppsHopLengthTime, 16678U);
    EXPECT_EQ(impl.execute(command(2)).ppsHopLengthTime, 33000U);
    EXPECT_EQ(impl.execute(command(1)).ppsHopLengthTime, 16679U);
}

TEST_F(CriGetHopLengthTimeDspPpsTest, FailedReadKeepsWhatTheDspLeft)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.onPpsHopLengthTimeGet.inTurn({{0x8000, 77U}, 0x8000});
    EXPECT_EQ(impl.execute(command(1)).ppsHopLengthTime, 77U);
    EXPECT_EQ(impl.execute(command(1)).ppsHopLengthTime, 0U);
}

} // namespace
} // namespace zyr_top_api
