#include "CriCalibrateDspPpsImpl.h"
#include "DspApiFixture.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CriCalibrateDspPpsTest : public zyr_test::DspApiFixture
{
  protected:
    static CriCalibrateDspPps::Command command(std::uint32_t channel)
    {
        return {channel, PpsRtcCalibrationMode::Fine, 1500};
    }

    CriCalibrateDspPpsImpl impl;
};

TEST_F(CriCalibrateDspPpsTest, FrameShowsRequestAndResponseAroundTheCallOfTheChannelsDsp)
{
    enrol<CriCalibrateDspPpsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.ZyrTopApi", 6);
    setTraceLevel("ZYR.TI.CriCalibrateDspPps", 7);
    dspApi2.channelApi.onPpsRtcCalibrationStart = 0x7FFF;
    tell(criCalibrateDspPps(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriCalibrateDspPps::Command
5 ZYR.COMM: CRI.CalibrateDspPps Request: RadioChannelID: 2, PpsRtcCalibrationMode: Fine, PpsPeriodMilliSec: 1500\n
6 ZYR.TI.CriCalibrateDspPps: command.channelId=2
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 2, PpsRtcCalibrationMode: Fine, PpsPeriodMilliSec: 1500\n
IDspChannelApi_2.ppsRtcCalibrationStart(1, 1500)
6 ZYR.ZyrTopApi: Return StandardResponse
5 ZYR.COMM: CRI.CalibrateDspPps Response: StandardResponse Sent\n\n----------------------------------------------------\n
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriCalibrateDspPpsTest, FirstChannelIsItsOwn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsRtcCalibrationStart = 0x7FFF;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: Fine, PpsPeriodMilliSec: 1500\n
IDspChannelApi_1.ppsRtcCalibrationStart(1, 1500)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriCalibrateDspPpsTest, DspThatFailsGivesTheFailureInTraceAndResponse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsRtcCalibrationStart = 0x8000;
    dspApi2.channelApi.onPpsRtcCalibrationStart = 0xFFFFFFFFU;
    tell(impl.execute(command(1)));
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: Fine, PpsPeriodMilliSec: 1500\n
IDspChannelApi_1.ppsRtcCalibrationStart(1, 1500)
1 ZYR.TI.CriCalibrateDspPps: CRI.CalibrateDspPps failed to calibrate\x20
result 0x8000 4 "CRI.CalibrateDspPps failed to calibrate "
prints StandardResponse Sent\n
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 2, PpsRtcCalibrationMode: Fine, PpsPeriodMilliSec: 1500\n
IDspChannelApi_2.ppsRtcCalibrationStart(1, 1500)
1 ZYR.TI.CriCalibrateDspPps: CRI.CalibrateDspPps failed to calibrate\x20
result 0x8000 4 "CRI.CalibrateDspPps failed to calibrate "
prints StandardResponse Sent\n
)");
}

TEST_F(CriCalibrateDspPpsTest, DspThatDoesNotSupportItSucceeds)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriCalibrateDspPps", 5);
    dspApi1.channelApi.defaultsInForce = true;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: Fine, PpsPeriodMilliSec: 1500\n
IDspChannelApi_1.ppsRtcCalibrationStart(1, 1500)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriCalibrateDspPpsTest, ChannelEqualToTheNumberOfChannelsIsServedAndOneAboveRefusedWithoutACall)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriCalibrateDspPps", 7);
    EXPECT_EQ(impl.execute(command(2)).tiResult, 0);
    transcript.clear();
    tell(impl.execute(command(3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriCalibrateDspPps: command.channelId=3
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 3, PpsRtcCalibrationMode: Fine, PpsPeriodMilliSec: 1500\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriCalibrateDspPpsTest, PeriodIsLoggedWholeAndHandedOnInItsLow16Bits)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    for (const std::uint32_t period : {0U, 65535U, 65536U, 70000U, 4294967295U}) {
        impl.execute({1, PpsRtcCalibrationMode::CoarseAndFine, period});
    }
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: CoarseAndFine, PpsPeriodMilliSec: 0\n
IDspChannelApi_1.ppsRtcCalibrationStart(0, 0)
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: CoarseAndFine, PpsPeriodMilliSec: 65535\n
IDspChannelApi_1.ppsRtcCalibrationStart(0, 65535)
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: CoarseAndFine, PpsPeriodMilliSec: 65536\n
IDspChannelApi_1.ppsRtcCalibrationStart(0, 0)
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: CoarseAndFine, PpsPeriodMilliSec: 70000\n
IDspChannelApi_1.ppsRtcCalibrationStart(0, 4464)
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: CoarseAndFine, PpsPeriodMilliSec: 4294967295\n
IDspChannelApi_1.ppsRtcCalibrationStart(0, 65535)
)");
}

TEST_F(CriCalibrateDspPpsTest, EveryModeIsNamedAndOneWithoutANameIsHandedOnAsItIs)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    for (const std::uint32_t mode : {0U, 1U, 2U, 3U, 4U, 4294967295U}) {
        impl.execute({1, static_cast<PpsRtcCalibrationMode>(mode), 10});
    }
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: CoarseAndFine, PpsPeriodMilliSec: 10\n
IDspChannelApi_1.ppsRtcCalibrationStart(0, 10)
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: Fine, PpsPeriodMilliSec: 10\n
IDspChannelApi_1.ppsRtcCalibrationStart(1, 10)
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: Auto, PpsPeriodMilliSec: 10\n
IDspChannelApi_1.ppsRtcCalibrationStart(2, 10)
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: AutoOff, PpsPeriodMilliSec: 10\n
IDspChannelApi_1.ppsRtcCalibrationStart(3, 10)
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: Unknown, PpsPeriodMilliSec: 10\n
IDspChannelApi_1.ppsRtcCalibrationStart(4, 10)
3 ZYR.TI.CriCalibrateDspPps: RadioChannelID: 1, PpsRtcCalibrationMode: Unknown, PpsPeriodMilliSec: 10\n
IDspChannelApi_1.ppsRtcCalibrationStart(4294967295, 10)
)");
}

} // namespace
} // namespace zyr_top_api
