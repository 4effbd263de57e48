#include "CommandTest.h"
#include "TapsControllerDouble.h"
#include "TapsControllerLogDouble.h"
#include "TiManageTapsImpl.h"

#include <gtest/gtest.h>

#include <string>

namespace zyr_top_api
{
namespace
{

using Request = TiManageTaps::LogRequestOption;

class TiManageTapsTest : public zyr_test::CommandTest
{
  protected:
    TiManageTapsTest()
    {
        taps1.onGetTapsEnable = true;
        taps1.onGetIdleRateOffset = -11;
        taps1.onGetIdleRateThresholdFactor = 1.25;
        taps1.onGetKvalue = 13;
        taps1.onGetHrlbEnabled = false;
        log1.onIsLogActive = true;
        log1.onGetLogPeriod = {eSPC_S_OK, 14U};
        taps2.onGetTapsEnable = false;
        taps2.onGetIdleRateOffset = 21;
        taps2.onGetIdleRateThresholdFactor = -2.0;
        taps2.onGetKvalue = -23;
        taps2.onGetHrlbEnabled = true;
        log2.onIsLogActive = true;
        log2.onGetLogPeriod = {eSPC_S_OK, 4000000000U};
        log2.onReadSample = {eSPC_S_OK, TapsLogData{2, "12:34:56", 3, -4, 5, 6, -7, 8, 9, -10, 11, 12, 13,
                                                    -14, 15, -16, true}};
        publish(taps1);
        publish(log1);
        publish(taps2);
        publish(log2);
        transcript.clear();
    }

    static TiManageTaps::Command command(std::uint32_t channel)
    {
        TiManageTaps::Command command;
        command.RadioChannelID = channel;
        return command;
    }

    static TiManageTaps::Command logRequest(std::uint32_t channel, Request request)
    {
        TiManageTaps::Command command;
        command.RadioChannelID = channel;
        command.LogRequestOption = request;
        return command;
    }

    zyr_test::TapsControllerDouble taps1{transcript, "ITapsController_1"};
    zyr_test::TapsControllerDouble taps2{transcript, "ITapsController_2"};
    zyr_test::TapsControllerLogDouble log1{transcript, "ITapsControllerLog_1"};
    zyr_test::TapsControllerLogDouble log2{transcript, "ITapsControllerLog_2"};
    TiManageTapsImpl impl;
};

TEST_F(TiManageTapsTest, WithoutOptionsTheStateIsRead)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(command(1)));
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageTaps:
ITapsController_1.getTapsEnable()
ITapsControllerLog_1.isLogActive()
ITapsControllerLog_1.getLogPeriod()
ITapsController_1.getIdleRateOffset()
ITapsController_1.getIdleRateThresholdFactor()
ITapsController_1.getKvalue()
ITapsController_1.getHrlbEnabled()
result 0x0 0 ""
prints RadioChannelID: 1, TapsEnable: 1, IdleRateOffset: -11, IdleRateThresholdFactor: 1.25, Kvalue: 13, TapsLogActive: 1, LogPeriodSec: 14, HrlbEnabled: 0
6 ZYR.TI.TiManageTaps:
ITapsController_2.getTapsEnable()
ITapsControllerLog_2.isLogActive()
ITapsControllerLog_2.getLogPeriod()
ITapsController_2.getIdleRateOffset()
ITapsController_2.getIdleRateThresholdFactor()
ITapsController_2.getKvalue()
ITapsController_2.getHrlbEnabled()
result 0x0 0 ""
prints RadioChannelID: 2, TapsEnable: 0, IdleRateOffset: 21, IdleRateThresholdFactor: -2, Kvalue: -23, TapsLogActive: 1, LogPeriodSec: 4000000000, HrlbEnabled: 1
)");
}

TEST_F(TiManageTapsTest, AllOptionsArePlainValuesThenTapsThenTheLog)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    log1.onIsLogActive = false;
    taps1.onSetIdleRateOffset = 0x8000;
    taps1.onSetIdleRateThresholdFactor = 0x8000;
    taps1.onSetKvalue = 0x8000;
    taps1.onSetHrlbEnabled = 0x8000;
    TiManageTaps::Command all = logRequest(1, Request::SetLogPeriod);
    all.TapsEnable = false;
    all.Time = 3000000000U;
    all.IdleRateOffset = -5;
    all.IdleRateThresholdFactor = 0.125;
    all.Kvalue = 7;
    all.HrlbEnabled = true;
    tell(impl.execute(all));
    EXPECT_EQ(transcript.text(), R"(
ITapsController_1.setIdleRateOffset(-5, 1)
ITapsController_1.setIdleRateThresholdFactor(0.125)
ITapsController_1.setKvalue(7)
ITapsController_1.setHrlbEnabled(true)
ITapsController_1.setTapsEnable(false)
ITapsControllerLog_1.setLogPeriod(3000000000)
ITapsController_1.getTapsEnable()
ITapsControllerLog_1.isLogActive()
ITapsControllerLog_1.getLogPeriod()
ITapsController_1.getIdleRateOffset()
ITapsController_1.getIdleRateThresholdFactor()
ITapsController_1.getKvalue()
ITapsController_1.getHrlbEnabled()
result 0x0 0 ""
prints RadioChannelID: 1, TapsEnable: 1, IdleRateOffset: -11, IdleRateThresholdFactor: 1.25, Kvalue: 13, TapsLogActive: 0, LogPeriodSec: 14, HrlbEnabled: 0
)");
}

TEST_F(TiManageTapsTest, TapsThatCannotBeSwitchedEndTheCommandBehindThePlainValues)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    taps2.onSetTapsEnable = 0x8000;
    TiManageTaps::Command request = logRequest(2, Request::StartLog);
    request.TapsEnable = true;
    request.Kvalue = 8;
    request.HrlbEnabled = false;
    const TiManageTaps::Response response = tell(impl.execute(request));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageTaps:
ITapsController_2.setKvalue(8)
ITapsController_2.setHrlbEnabled(false)
ITapsController_2.setTapsEnable(true)
1 ZYR.TI.TiManageTaps: TI.ManageTaps failed to set TAPS enable
result 0x8000 4 "TI.ManageTaps failed to set TAPS enable"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageTaps failed to set TAPS enable
)");
    EXPECT_EQ(response.RadioChannelID, 1U);
    EXPECT_FALSE(response.HrlbEnabled);
}

TEST_F(TiManageTapsTest, ResultsBelow0x8000AreSuccesses)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    taps1.onSetTapsEnable = 0x7FFF;
    log1.onStartLog = 0x7FFF;
    log1.onStopLog = 0x7FFF;
    log1.onDumpLogToFile = 0x7FFF;
    log1.onReadSample = {0x7FFF, TapsLogData{}};
    log1.onGetLogPeriod = {0x7FFF, 77U};
    for (const Request request :
         {Request::StartLog, Request::StopLog, Request::DumpLogToFile, Request::ReadSample}) {
        TiManageTaps::Command one = logRequest(1, request);
        one.TapsEnable = true;
        const TiManageTaps::Response response = impl.execute(one);
        EXPECT_EQ(outcome(response), "result 0x0 0 \"\"");
        EXPECT_EQ(response.LogPeriodSec, 77U);
    }
}

TEST_F(TiManageTapsTest, EachLogRequestReachesTheLogOfTheChannel)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    std::string calls;
    for (unsigned request = 0; request <= 3; ++request) {
        TiManageTaps::Command one = logRequest(2, static_cast<Request>(request));
        one.Time = 5 + request;
        transcript.clear();
        impl.execute(one);
        calls += transcript.lines().at(0) + "\n" + transcript.lines().at(1) + "\n";
    }
    EXPECT_EQ(calls, R"(ITapsControllerLog_2.startLog()
ITapsController_2.getTapsEnable()
ITapsControllerLog_2.stopLog()
ITapsController_2.getTapsEnable()
ITapsControllerLog_2.setLogPeriod(7)
ITapsController_2.getTapsEnable()
ITapsControllerLog_2.dumpLogToFile()
ITapsController_2.getTapsEnable()
)");
}

TEST_F(TiManageTapsTest, SampleIsPrintedBehindTheValuesWithoutASeparator)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    const TiManageTaps::Response response = tell(impl.execute(logRequest(2, Request::ReadSample)));
    EXPECT_EQ(transcript.text(), R"(
ITapsControllerLog_2.readSample()
ITapsController_2.getTapsEnable()
ITapsControllerLog_2.isLogActive()
ITapsControllerLog_2.getLogPeriod()
ITapsController_2.getIdleRateOffset()
ITapsController_2.getIdleRateThresholdFactor()
ITapsController_2.getKvalue()
ITapsController_2.getHrlbEnabled()
result 0x0 0 ""
prints RadioChannelID: 2, TapsEnable: 0, IdleRateOffset: 21, IdleRateThresholdFactor: -2, Kvalue: -23, TapsLogActive: 1, LogPeriodSec: 4000000000, HrlbEnabled: 1DataSample: TapsLogData: samplesRemaining: 2, timeStamp: 12:34:56, minPowerIn: 3, maxPowerIn: -4, dspRateMebit: 5, dspRateMbit: 6, dspMinRateMbit: -7, dspMaxRateMbit: 8, currentModValue: 9, idleRate: -10, idleRateThreshold: 11, rateNeeded: 12, rateMin: 13, deltaPower: -14, minPowerOut: 15, maxPowerOut: -16, atpcEnabled: 1
)");
    EXPECT_EQ(response.TapsLogData.value().samplesRemaining, 2);
}

TEST_F(TiManageTapsTest, SampleIsReadIntoAZeroedRecord)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    log1.onReadSample = 0;
    const TiManageTaps::Response response = impl.execute(logRequest(1, Request::ReadSample));
    ASSERT_TRUE(response.TapsLogData.hasValue());
    EXPECT_EQ(response.TapsLogData.value().toString(), TapsLogData().toString());
}

TEST_F(TiManageTapsTest, LogThatRefusesEndsTheCommand)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageTaps", 7);
    log1.onStartLog = 0x8000;
    log1.onStopLog = 0x8000;
    log1.onDumpLogToFile = 0x8000;
    log1.onReadSample = {0x8000, TapsLogData{}};
    tell(impl.execute(logRequest(1, Request::StartLog)));
    tell(impl.execute(logRequest(1, Request::StopLog)));
    tell(impl.execute(logRequest(1, Request::DumpLogToFile)));
    const TiManageTaps::Response response = tell(impl.execute(logRequest(1, Request::ReadSample)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageTaps:
ITapsControllerLog_1.startLog()
1 ZYR.TI.TiManageTaps: TI.ManageTaps failed to start log
result 0x8000 4 "TI.ManageTaps failed to start log"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageTaps failed to start log
6 ZYR.TI.TiManageTaps:
ITapsControllerLog_1.stopLog()
1 ZYR.TI.TiManageTaps: TI.ManageTaps failed to stop log
result 0x8000 4 "TI.ManageTaps failed to stop log"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageTaps failed to stop log
6 ZYR.TI.TiManageTaps:
ITapsControllerLog_1.dumpLogToFile()
1 ZYR.TI.TiManageTaps: TI.ManageTaps failed to dump log to file
result 0x8000 4 "TI.ManageTaps failed to dump log to file"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageTaps failed to dump log to file
6 ZYR.TI.TiManageTaps:
ITapsControllerLog_1.readSample()
1 ZYR.TI.TiManageTaps: TI.ManageTaps failed to read sample from log
result 0x8000 4 "TI.ManageTaps failed to read sample from log"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageTaps failed to read sample from log
)");
    EXPECT_FALSE(response.TapsLogData.hasValue());
}

TEST_F(TiManageTapsTest, PeriodWithoutItsTimeLeavesTheLogAlone)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageTaps", 7);
    tell(impl.execute(logRequest(1, Request::SetLogPeriod)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageTaps:
1 ZYR.TI.TiManageTaps: TI.ManageTaps: LogPeriodSec called without Time value
result 0xA102 2 "TI.ManageTaps: LogPeriodSec called without Time value"
prints tiResult: eTI_E_REQUIRED_INPUT_MISSING, faultCode: 2, faultString: TI.ManageTaps: LogPeriodSec called without Time value
)");
}

TEST_F(TiManageTapsTest, PeriodThatTheLogRefusesIsNoFailure)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    log1.onSetLogPeriod = 0x8000;
    TiManageTaps::Command request = logRequest(1, Request::SetLogPeriod);
    request.Time = 0U;
    EXPECT_EQ(outcome(impl.execute(request)), "result 0x0 0 \"\"");
    EXPECT_EQ(transcript.lines().at(0), "ITapsControllerLog_1.setLogPeriod(0)");
}

TEST_F(TiManageTapsTest, OtherLogRequestsAreUnknown)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageTaps", 7);
    tell(impl.execute(logRequest(1, static_cast<Request>(5))));
    tell(impl.execute(logRequest(1, static_cast<Request>(0xFFFFFFFF))));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageTaps:
1 ZYR.TI.TiManageTaps: TI.ManageTaps: Unknown LogRequestOption
result 0xA100 2 "TI.ManageTaps: Unknown LogRequestOption"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: TI.ManageTaps: Unknown LogRequestOption
6 ZYR.TI.TiManageTaps:
1 ZYR.TI.TiManageTaps: TI.ManageTaps: Unknown LogRequestOption
result 0xA100 2 "TI.ManageTaps: Unknown LogRequestOption"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: TI.ManageTaps: Unknown LogRequestOption
)");
}

TEST_F(TiManageTapsTest, PeriodThatCannotBeReadKeepsWhatWasReadBefore)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageTaps", 7);
    log2.onGetLogPeriod = {0x8000, 31U};
    taps2.onGetTapsEnable = true;
    const TiManageTaps::Response response = tell(impl.execute(logRequest(2, Request::ReadSample)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageTaps:
ITapsControllerLog_2.readSample()
ITapsController_2.getTapsEnable()
ITapsControllerLog_2.isLogActive()
ITapsControllerLog_2.getLogPeriod()
1 ZYR.TI.TiManageTaps: TI.ManageTaps failed to to get log period
result 0x8000 4 "TI.ManageTaps failed to to get log period"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageTaps failed to to get log period
)");
    EXPECT_EQ(response.RadioChannelID, 2U);
    EXPECT_TRUE(response.TapsEnable);
    EXPECT_TRUE(response.TapsLogActive);
    EXPECT_EQ(response.TapsLogData.value().timeStamp, "12:34:56");
    EXPECT_EQ(response.LogPeriodSec, 0U);
    EXPECT_EQ(response.IdleRateOffset, 0);
    EXPECT_EQ(response.IdleRateThresholdFactor, 0.0);
    EXPECT_EQ(response.Kvalue, 0);
    EXPECT_FALSE(response.HrlbEnabled);
}

TEST_F(TiManageTapsTest, ObjectThatWasNotInitialisedIsNamedWhateverTheChannel)
{
    setTraceLevel("*", 7);
    tell(impl.execute(command(1)));
    tell(impl.execute(command(3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageTaps:
result 0x8000 4 "TiManageTapsImpl not initialized"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TiManageTapsImpl not initialized
6 ZYR.TI.TiManageTaps:
result 0x8000 4 "TiManageTapsImpl not initialized"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TiManageTapsImpl not initialized
)");
}

TEST_F(TiManageTapsTest, ChannelAboveTheCountIsRefusedInSilenceAndChannelZeroHasNoTaps)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(command(2)));
    tell(impl.execute(command(0)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageTaps:
result 0xA002 3 "RadioChannelID out of bounds"
prints tiResult: eTI_E_PARAMETER_INVALID, faultCode: 3, faultString: RadioChannelID out of bounds
6 ZYR.TI.TiManageTaps:
result 0x8008 4 "One or more null pointer objects"
prints tiResult: eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, faultCode: 4, faultString: One or more null pointer objects
)");
}

TEST_F(TiManageTapsTest, ChannelThatLacksEitherObjectIsRefused)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("ITapsControllerLog_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    TiManageTaps::Command request = command(2);
    request.Kvalue = 1;
    tell(impl.execute(request));
    publish(log2);
    withdraw("ITapsController_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    tell(impl.execute(request));
    EXPECT_EQ(outcome(impl.execute(command(1))), "result 0x0 0 \"\"");
    transcript.clear();
    EXPECT_EQ(outcome(impl.execute(request)), R"(result 0x8008 4 "One or more null pointer objects")");
    EXPECT_EQ(transcript.text(), "\n");
}

// The next one that is missing is told when the one before is there.
TEST_F(TiManageTapsTest, InitialiseTellsTheMissingInterfacesInOrderChannelByChannel)
{
    setTraceLevel("ZYR.TI.TiManageTaps", 7);
    for (const char* name :
         {"ITapsController_1", "ITapsControllerLog_1", "ITapsController_2", "ITapsControllerLog_2"}) {
        withdraw(name);
    }
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(taps1);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(log1);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(taps2);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(log2);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageTaps:
1 ZYR.TI.TiManageTaps:  Error getting interface to ITapsController_1
6 ZYR.TI.TiManageTaps:
1 ZYR.TI.TiManageTaps:  Error getting interface to ITapsControllerLog_1
6 ZYR.TI.TiManageTaps:
1 ZYR.TI.TiManageTaps:  Error getting interface to ITapsController_2
6 ZYR.TI.TiManageTaps:
1 ZYR.TI.TiManageTaps:  Error getting interface to ITapsControllerLog_2
6 ZYR.TI.TiManageTaps:
)");
}

TEST_F(TiManageTapsTest, DefaultsAreChannelOneAndNoOption)
{
    EXPECT_EQ(TiManageTaps::Command().RadioChannelID, 1U);
    EXPECT_EQ(TiManageTaps::Response().printResponse(),
              "RadioChannelID: 1, TapsEnable: 0, IdleRateOffset: 0, IdleRateThresholdFactor: 0, Kvalue: 0, "
              "TapsLogActive: 0, LogPeriodSec: 0, HrlbEnabled: 0");
}

} // namespace
} // namespace zyr_top_api
