#include "DspApiFixture.h"
#include "TiManageDspImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiManageDspTest : public zyr_test::DspApiFixture
{
  protected:
    static TiManageDsp::Command command(std::uint32_t channel, unsigned injectError, std::uint32_t counter,
                                        std::uint32_t wait_s = 0)
    {
        return {channel, static_cast<TiManageDsp::InjectError>(injectError), counter, wait_s};
    }

    TiManageDspImpl impl;
};

TEST_F(TiManageDspTest, EachErrorGoesToItsInterfaceOfTheChannelBeforeItIsTold)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    for (unsigned error = 0; error <= 4; ++error) {
        tell(impl.execute(command(1 + error % 2, error, 10 + error)));
    }
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageDsp:
IDspControlApi_1.injectComError(32778, 10)
3 ZYR.TI.TiManageDsp: TI.ManageDsp request: RadioChannelID: 1, Inject error: ComFailure, Inject counter: 10, WaitInSeconds : 0
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.TiManageDsp:
IDspStatusApi_2.injectComError(32780, 11)
3 ZYR.TI.TiManageDsp: TI.ManageDsp request: RadioChannelID: 2, Inject error: ComNotInitialized, Inject counter: 11, WaitInSeconds : 0
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.TiManageDsp:
IDspAcmApi_1.injectEnableFailure(12)
3 ZYR.TI.TiManageDsp: TI.ManageDsp request: RadioChannelID: 1, Inject error: AcmEngineEnableFailure, Inject counter: 12, WaitInSeconds : 0
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.TiManageDsp:
IDspChannelApi_2.injectI2cError(13)
3 ZYR.TI.TiManageDsp: TI.ManageDsp request: RadioChannelID: 2, Inject error: I2CErrorDuringDspConfiguration, Inject counter: 13, WaitInSeconds : 0
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.TiManageDsp:
IDspAcmApi_1.injectThresholdFailure(14)
3 ZYR.TI.TiManageDsp: TI.ManageDsp request: RadioChannelID: 1, Inject error: UpdateThresholdFailure, Inject counter: 14, WaitInSeconds : 0
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(TiManageDspTest, CallerIsHeldBehindTheInjectionForAHundredSecondsAtMost)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(command(1, 3, 1, 1)));
    tell(impl.execute(command(1, 3, 0xFFFFFFFF, 100)));
    tell(impl.execute(command(1, 3, 1, 101)));
    tell(impl.execute(command(1, 3, 1, 0xFFFFFFFF)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageDsp:
IDspChannelApi_1.injectI2cError(1)
3 ZYR.TI.TiManageDsp: TI.ManageDsp request: RadioChannelID: 1, Inject error: I2CErrorDuringDspConfiguration, Inject counter: 1, WaitInSeconds : 1
sleep 1000
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.TiManageDsp:
IDspChannelApi_1.injectI2cError(4294967295)
3 ZYR.TI.TiManageDsp: TI.ManageDsp request: RadioChannelID: 1, Inject error: I2CErrorDuringDspConfiguration, Inject counter: 4294967295, WaitInSeconds : 100
sleep 100000
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.TiManageDsp:
1 ZYR.TI.TiManageDsp: TI.ManageDsp Wait duration cannot be more than 100 seconds for ch1
result 0x8000 4 "TI.ManageDsp Wait duration cannot be more than 100 seconds for ch1"
prints StandardResponse Sent\n
6 ZYR.TI.TiManageDsp:
1 ZYR.TI.TiManageDsp: TI.ManageDsp Wait duration cannot be more than 100 seconds for ch1
result 0x8000 4 "TI.ManageDsp Wait duration cannot be more than 100 seconds for ch1"
prints StandardResponse Sent\n
)");
}

TEST_F(TiManageDspTest, OtherErrorsAreRefusedBehindTheWaitAndHoldNobody)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    tell(impl.execute(command(1, 5, 1, 101)));
    tell(impl.execute(command(1, 5, 1, 100)));
    tell(impl.execute(command(1, 0xFFFFFFFF, 1)));
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.TiManageDsp: TI.ManageDsp Wait duration cannot be more than 100 seconds for ch1
result 0x8000 4 "TI.ManageDsp Wait duration cannot be more than 100 seconds for ch1"
prints StandardResponse Sent\n
1 ZYR.TI.TiManageDsp: DSP error Undefined not supported
result 0x8000 4 "DSP error Undefined not supported"
prints StandardResponse Sent\n
1 ZYR.TI.TiManageDsp: DSP error Undefined not supported
result 0x8000 4 "DSP error Undefined not supported"
prints StandardResponse Sent\n
)");
}

TEST_F(TiManageDspTest, FirstInterfaceThatIsMissingEndsTheCommandWhateverTheErrorAndTheWait)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi2.onGetDspStatusApi.inTurn({nullptr, &dspApi2.statusApi});
    dspApi2.onGetDspControlApi.inTurn({nullptr, &dspApi2.controlApi});
    dspApi2.onGetAcmApi.inTurn({nullptr, &dspApi2.acmApi});
    dspApi2.onGetDspChannelApi.inTurn({nullptr, &dspApi2.channelApi});
    for (int call = 0; call < 4; ++call) {
        tell(impl.execute(command(2, 5, 1, 101)));
    }
    tell(impl.execute(command(2, 2, 1)));
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.TiManageDsp: TI.ManageDsp failed to get DSP status API for ch2
result 0x8000 4 "TI.ManageDsp failed to get DSP status API for ch2"
prints StandardResponse Sent\n
1 ZYR.TI.TiManageDsp: TI.ManageDsp failed to get DSP core API for ch2
result 0x8000 4 "TI.ManageDsp failed to get DSP core API for ch2"
prints StandardResponse Sent\n
1 ZYR.TI.TiManageDsp: TI.ManageDsp failed to get DSP acm API for ch2
result 0x8000 4 "TI.ManageDsp failed to get DSP acm API for ch2"
prints StandardResponse Sent\n
1 ZYR.TI.TiManageDsp: TI.ManageDsp failed to get DSP channel API for ch2
result 0x8000 4 "TI.ManageDsp failed to get DSP channel API for ch2"
prints StandardResponse Sent\n
IDspAcmApi_2.injectEnableFailure(1)
3 ZYR.TI.TiManageDsp: TI.ManageDsp request: RadioChannelID: 2, Inject error: AcmEngineEnableFailure, Inject counter: 1, WaitInSeconds : 0
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(TiManageDspTest, ChannelAboveTheCountIsRefusedInSilence)
{
    tell(impl.execute(command(1, 0, 1)));
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    tell(impl.execute(command(2, 5, 1, 101)));
    EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
6 ZYR.TI.TiManageDsp:
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(TiManageDspTest, ChannelWithoutADspThrows)
{
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, 0, 1)); }), "IDspApi of radio channel 0");
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, 0, 1)); }), "IDspApi of radio channel 0");
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    transcript.clear();
    EXPECT_EQ(missingIn([&] { impl.execute(command(2, 0, 1)); }), "IDspApi of radio channel 2");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiManageDspTest, ErrorsOutsideTheFiveAreUndefined)
{
    EXPECT_EQ(injectErrorToString(static_cast<TiManageDsp::InjectError>(4)), "UpdateThresholdFailure");
    EXPECT_EQ(injectErrorToString(static_cast<TiManageDsp::InjectError>(5)), "Undefined");
    EXPECT_EQ(injectErrorToString(static_cast<TiManageDsp::InjectError>(0xFFFFFFFF)), "Undefined");
}

} // namespace
} // namespace zyr_top_api
