#include "CriGetCalibrationStatusDspPpsImpl.h"
#include "DspApiFixture.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CriGetCalibrationStatusDspPpsTest : public zyr_test::DspApiFixture
{
  protected:
    static CriGetCalibrationStatusDspPps::Command command(std::uint32_t channel) { return {channel}; }

    CriGetCalibrationStatusDspPpsImpl impl;
};

TEST_F(CriGetCalibrationStatusDspPpsTest, FrameShowsRequestAndResponseAroundTheCallOfTheChannelsDsp)
{
    enrol<CriGetCalibrationStatusDspPpsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.ZyrTopApi", 6);
    setTraceLevel("ZYR.TI.CriGetCalibrationStatusDspPps", 7);
    dspApi2.channelApi.onPpsStatusGet = {0x7FFF, PpsCalibStatus::Failed,
                                         PpsCalibReasonOfFailure::CoarseNeeded};
    tell(criGetCalibrationStatusDspPps(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriGetCalibrationStatusDspPps::Command
5 ZYR.COMM: CRI.GetCalibrationStatusDspPps Request: RadioChannelID: 2\n
6 ZYR.TI.CriGetCalibrationStatusDspPps: command.channelId=2
IDspChannelApi_2.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Failed
5 ZYR.TI.CriGetCalibrationStatusDspPps: Reason of failure: CoarseNeeded
6 ZYR.ZyrTopApi: Return CriGetCalibrationStatus::Response
5 ZYR.COMM: CRI.GetCalibrationStatusDspPps Response: PpsCalibStatus: Failed\n\n----------------------------------------------------\n
result 0x0 0 ""
prints PpsCalibStatus: Failed\n
)");
}

TEST_F(CriGetCalibrationStatusDspPpsTest, FirstChannelIsItsOwn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsStatusGet = {0x7FFF, PpsCalibStatus::Failed,
                                         PpsCalibReasonOfFailure::CoarseNeeded};
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.ppsStatusGet()
result 0x0 0 ""
prints PpsCalibStatus: Failed\n
)");
}

TEST_F(CriGetCalibrationStatusDspPpsTest, DspThatFailsGivesTheFailureInTraceAndResponse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onPpsStatusGet = 0x8000;
    dspApi2.channelApi.onPpsStatusGet = 0xFFFFFFFFU;
    tell(impl.execute(command(1)));
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.ppsStatusGet()
1 ZYR.TI.CriGetCalibrationStatusDspPps: CRI.GetCalibrationStatusDspPps failed to get calibrationStatus.
result 0x8000 4 "CRI.GetCalibrationStatusDspPps failed to get calibrationStatus."
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetCalibrationStatusDspPps failed to get calibrationStatus.
IDspChannelApi_2.ppsStatusGet()
1 ZYR.TI.CriGetCalibrationStatusDspPps: CRI.GetCalibrationStatusDspPps failed to get calibrationStatus.
result 0x8000 4 "CRI.GetCalibrationStatusDspPps failed to get calibrationStatus."
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetCalibrationStatusDspPps failed to get calibrationStatus.
)");
}

TEST_F(CriGetCalibrationStatusDspPpsTest, DspThatDoesNotSupportItSucceedsWithTheInitialValues)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetCalibrationStatusDspPps", 5);
    dspApi1.channelApi.defaultsInForce = true;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Undefined
result 0x0 0 ""
prints PpsCalibStatus: Undefined\n
)");
}

TEST_F(CriGetCalibrationStatusDspPpsTest,
       ChannelEqualToTheNumberOfChannelsIsServedAndOneAboveRefusedWithoutACall)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetCalibrationStatusDspPps", 7);
    EXPECT_EQ(impl.execute(command(2)).tiResult, 0);
    transcript.clear();
    tell(impl.execute(command(3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriGetCalibrationStatusDspPps: command.channelId=3
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
}

TEST_F(CriGetCalibrationStatusDspPpsTest, FailedCalibrationIsASuccessfulReadWithStatusAndReason)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.onPpsStatusGet = {eTI_S_OK, PpsCalibStatus::Failed,
                                         PpsCalibReasonOfFailure::CoarseNeeded};
    const auto response = impl.execute(command(1));
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_EQ(static_cast<std::uint32_t>(response.ppsCalibStatus), 5U);
    EXPECT_EQ(static_cast<std::uint32_t>(response.ppsCalibReasonOfFailure), 4U);
}

TEST_F(CriGetCalibrationStatusDspPpsTest, ReasonIsToldOnlyOfAFailureButReturnedAsTheDspLeftIt)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetCalibrationStatusDspPps", 5);
    for (const std::uint32_t status : {0U, 1U, 2U, 3U, 4U, 6U, 7U}) {
        dspApi1.channelApi.onPpsStatusGet = {eTI_S_OK, static_cast<PpsCalibStatus>(status),
                                             PpsCalibReasonOfFailure::SlaveAcmSwitch};
        const auto response = tell(impl.execute(command(1)));
        EXPECT_EQ(static_cast<std::uint32_t>(response.ppsCalibStatus), status);
        EXPECT_EQ(static_cast<std::uint32_t>(response.ppsCalibReasonOfFailure), 3U);
    }
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = NotCalibrated
result 0x0 0 ""
prints PpsCalibStatus: NotCalibrated\n
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = CoarseInProgress
result 0x0 0 ""
prints PpsCalibStatus: CoarseInProgress\n
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = FineInProgress
result 0x0 0 ""
prints PpsCalibStatus: FineInProgress\n
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = AutoFineInProgress
result 0x0 0 ""
prints PpsCalibStatus: AutoFineInProgress\n
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Successful
result 0x0 0 ""
prints PpsCalibStatus: Successful\n
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Undefined
result 0x0 0 ""
prints PpsCalibStatus: Undefined\n
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Unknown
result 0x0 0 ""
prints PpsCalibStatus: Unknown\n
)");
}

TEST_F(CriGetCalibrationStatusDspPpsTest, EveryReasonIsNamedInTheTrace)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetCalibrationStatusDspPps", 5);
    for (const std::uint32_t reason : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U}) {
        dspApi1.channelApi.onPpsStatusGet = {eTI_S_OK, PpsCalibStatus::Failed,
                                             static_cast<PpsCalibReasonOfFailure>(reason)};
        impl.execute(command(1));
    }
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Failed
5 ZYR.TI.CriGetCalibrationStatusDspPps: Reason of failure: NotRelevant
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Failed
5 ZYR.TI.CriGetCalibrationStatusDspPps: Reason of failure: SlaveLOL
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Failed
5 ZYR.TI.CriGetCalibrationStatusDspPps: Reason of failure: NoResponseFromMaster
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Failed
5 ZYR.TI.CriGetCalibrationStatusDspPps: Reason of failure: SlaveAcmSwitch
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Failed
5 ZYR.TI.CriGetCalibrationStatusDspPps: Reason of failure: CoarseNeeded
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Failed
5 ZYR.TI.CriGetCalibrationStatusDspPps: Reason of failure: GeneralFailure
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Failed
5 ZYR.TI.CriGetCalibrationStatusDspPps: Reason of failure: OtherMessageReceived
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Failed
5 ZYR.TI.CriGetCalibrationStatusDspPps: Reason of failure: Undefined
IDspChannelApi_1.ppsStatusGet()
5 ZYR.TI.CriGetCalibrationStatusDspPps: DSP PPS Calibration Status = Failed
5 ZYR.TI.CriGetCalibrationStatusDspPps: Reason of failure: Unknown
)");
}

TEST_F(CriGetCalibrationStatusDspPpsTest, FailedReadKeepsWhatTheDspLeft)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.onPpsStatusGet.inTurn(
        {{0x8000, PpsCalibStatus::Successful, PpsCalibReasonOfFailure::SlaveLOL}, 0x8000});
    const auto touched = impl.execute(command(1));
    EXPECT_EQ(static_cast<std::uint32_t>(touched.ppsCalibStatus), 4U);
    EXPECT_EQ(static_cast<std::uint32_t>(touched.ppsCalibReasonOfFailure), 1U);
    const auto untouched = impl.execute(command(1));
    EXPECT_EQ(static_cast<std::uint32_t>(untouched.ppsCalibStatus), 6U);
    EXPECT_EQ(static_cast<std::uint32_t>(untouched.ppsCalibReasonOfFailure), 7U);
}

TEST_F(CriGetCalibrationStatusDspPpsTest, FailedReadTellsNoStatusInTheTrace)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetCalibrationStatusDspPps", 5);
    dspApi1.channelApi.onPpsStatusGet = {0x8000, PpsCalibStatus::Failed,
                                         PpsCalibReasonOfFailure::GeneralFailure};
    impl.execute(command(1));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.ppsStatusGet()
1 ZYR.TI.CriGetCalibrationStatusDspPps: CRI.GetCalibrationStatusDspPps failed to get calibrationStatus.
)");
}

} // namespace
} // namespace zyr_top_api
