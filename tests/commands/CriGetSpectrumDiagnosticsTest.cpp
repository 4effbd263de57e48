#include "CommandTest.h"
#include "CriGetSpectrumDiagnosticsImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace zyr_top_api
{
namespace
{

using Results = std::vector<SpectrumDiagnosticsResult>;

class CriGetSpectrumDiagnosticsTest : public zyr_test::CommandTest
{
  protected:
    CriGetSpectrumDiagnosticsTest()
    {
        publishNode(node);
        auto& first = node.channel1.spectrumDiagnosticsController;
        first.onGetStatus = 2;
        first.onGetProgress = 41;
        first.onGetProperties = SpectrumDiagnosticsProperties{true, false, true, false};
        auto& second = node.channel2.spectrumDiagnosticsController;
        second.onGetStatus = 3;
        second.onGetProgress = -1;
        second.onGetProperties = SpectrumDiagnosticsProperties{false, true, true, false};
        transcript.clear();
    }

    static CriGetSpectrumDiagnostics::Command command(std::uint32_t channel, const std::string& option)
    {
        return {channel, option, {}};
    }

    static CriGetSpectrumDiagnostics::Command command(std::uint32_t channel, const std::string& option,
                                                      std::uint32_t dmSleep)
    {
        return {channel, option, dmSleep};
    }

    zyr_test::NodeDoubles node{transcript};
    CriGetSpectrumDiagnosticsImpl impl;
};

TEST_F(CriGetSpectrumDiagnosticsTest, ChannelScanStartsAndTellsHowItStandsJustAfterTheStart)
{
    enrol<CriGetSpectrumDiagnosticsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.CriGetSpectrumDiagnostics", 7);
    tell(criGetSpectrumDiagnostics(command(1, "channel-scan-start", 20)));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.GetSpectrumDiagnostics Request: RadioChannelID: 1, RequestOption: channel-scan-start, DmSleep: 20\n
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 1, RequestOption: channel-scan-start, DmSleep: 20\n
ISpectrumDiagnosticsController_1.scanControl(0, 20)
ISpectrumDiagnosticsController_1.getStatus()
ISpectrumDiagnosticsController_1.getProgress()
ISpectrumDiagnosticsController_1.getProperties()
5 ZYR.CriGetSpectrumDiagnostics: GetSpectrumDiagnostics channel 1 status channel-scan-ongoing
5 ZYR.COMM: CRI.GetSpectrumDiagnostics Response: Status: channel-scan-ongoing, Progress: 41, Result: SpectrumDiagnosticsProperties: isLongHaul: 1, hasAdjustableDiplexer: 0, isRadioCarrierAggrCapable: 1, isSdcSupported: 0\n\n----------------------------------------------------\n
result 0x0 0 ""
prints Status: channel-scan-ongoing, Progress: 41, Result: SpectrumDiagnosticsProperties: isLongHaul: 1, hasAdjustableDiplexer: 0, isRadioCarrierAggrCapable: 1, isSdcSupported: 0\n
)");
}

TEST_F(CriGetSpectrumDiagnosticsTest, SubBandScanStartsOnItsChannel)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(command(2, "sub-band-scan-start", 0)));
    EXPECT_EQ(transcript.text(), R"(
ISpectrumDiagnosticsController_2.scanControl(1, 0)
ISpectrumDiagnosticsController_2.getStatus()
ISpectrumDiagnosticsController_2.getProgress()
ISpectrumDiagnosticsController_2.getProperties()
result 0x0 0 ""
prints Status: sub-band-scan-finished, Progress: -1, Result: SpectrumDiagnosticsProperties: isLongHaul: 0, hasAdjustableDiplexer: 1, isRadioCarrierAggrCapable: 1, isSdcSupported: 0\n
)");
}

TEST_F(CriGetSpectrumDiagnosticsTest, StopPassesTheSleepOn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(outcome(impl.execute(command(1, "scan-stop", 4294967295U))), "result 0x0 0 \"\"");
    EXPECT_EQ(transcript.text(), R"(
ISpectrumDiagnosticsController_1.scanControl(2, 4294967295)
ISpectrumDiagnosticsController_1.getStatus()
ISpectrumDiagnosticsController_1.getProgress()
ISpectrumDiagnosticsController_1.getProperties()
)");
}

TEST_F(CriGetSpectrumDiagnosticsTest, StatusAndPropertiesGiveTheSameResponse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(command(1, "get-status")));
    tell(impl.execute(command(1, "get-scan-properties", 7)));
    EXPECT_EQ(transcript.text(), R"(
ISpectrumDiagnosticsController_1.getStatus()
ISpectrumDiagnosticsController_1.getProgress()
ISpectrumDiagnosticsController_1.getProperties()
result 0x0 0 ""
prints Status: channel-scan-ongoing, Progress: 41, Result: SpectrumDiagnosticsProperties: isLongHaul: 1, hasAdjustableDiplexer: 0, isRadioCarrierAggrCapable: 1, isSdcSupported: 0\n
ISpectrumDiagnosticsController_1.getStatus()
ISpectrumDiagnosticsController_1.getProgress()
ISpectrumDiagnosticsController_1.getProperties()
result 0x0 0 ""
prints Status: channel-scan-ongoing, Progress: 41, Result: SpectrumDiagnosticsProperties: isLongHaul: 1, hasAdjustableDiplexer: 0, isRadioCarrierAggrCapable: 1, isSdcSupported: 0\n
)");
}

TEST_F(CriGetSpectrumDiagnosticsTest, EachPropertyStandsUnderItsOwnName)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.CriGetSpectrumDiagnostics", 3);
    using Properties = SpectrumDiagnosticsProperties;
    node.channel1.spectrumDiagnosticsController.onGetProperties.inTurn(
        {Properties{true, false, false, false}, Properties{false, true, false, false},
         Properties{false, false, true, false}, Properties{false, false, false, true}});
    for (int property = 0; property < 4; ++property) {
        transcript.add(impl.execute(command(1, "get-scan-properties")).printResponse());
    }
    EXPECT_EQ(transcript.text(), R"(
ISpectrumDiagnosticsController_1.getStatus()
ISpectrumDiagnosticsController_1.getProgress()
ISpectrumDiagnosticsController_1.getProperties()
Status: channel-scan-ongoing, Progress: 41, Result: SpectrumDiagnosticsProperties: isLongHaul: 1, hasAdjustableDiplexer: 0, isRadioCarrierAggrCapable: 0, isSdcSupported: 0\n
ISpectrumDiagnosticsController_1.getStatus()
ISpectrumDiagnosticsController_1.getProgress()
ISpectrumDiagnosticsController_1.getProperties()
Status: channel-scan-ongoing, Progress: 41, Result: SpectrumDiagnosticsProperties: isLongHaul: 0, hasAdjustableDiplexer: 1, isRadioCarrierAggrCapable: 0, isSdcSupported: 0\n
ISpectrumDiagnosticsController_1.getStatus()
ISpectrumDiagnosticsController_1.getProgress()
ISpectrumDiagnosticsController_1.getProperties()
Status: channel-scan-ongoing, Progress: 41, Result: SpectrumDiagnosticsProperties: isLongHaul: 0, hasAdjustableDiplexer: 0, isRadioCarrierAggrCapable: 1, isSdcSupported: 0\n
ISpectrumDiagnosticsController_1.getStatus()
ISpectrumDiagnosticsController_1.getProgress()
ISpectrumDiagnosticsController_1.getProperties()
Status: channel-scan-ongoing, Progress: 41, Result: SpectrumDiagnosticsProperties: isLongHaul: 0, hasAdjustableDiplexer: 0, isRadioCarrierAggrCapable: 0, isSdcSupported: 1\n
)");
}

TEST_F(CriGetSpectrumDiagnosticsTest, EveryStatusHasItsTextAndAnyOtherNumberIsUnknown)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.spectrumDiagnosticsController.onGetStatus.inTurn({0, 1, 2, 3, 4, 5, -1, -2147483648});
    for (const char* const text :
         {"scan-not-started", "sub-band-ongoing", "channel-scan-ongoing", "sub-band-scan-finished",
          "channel-scan-finished", "unknown", "unknown", "unknown"}) {
        EXPECT_EQ(impl.execute(command(1, "get-status")).Status, text);
    }
}

// Results.

TEST_F(CriGetSpectrumDiagnosticsTest, ResultsComeInOrderAndAreToldAtLevel7)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.CriGetSpectrumDiagnostics", 7);
    node.channel2.spectrumDiagnosticsController.onGetResult = {
        eTI_S_OK, Results{{4294967295U, -2147483648}, {19712000, -412}}};
    tell(impl.execute(command(2, "get-result")));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 2, RequestOption: get-result\n
ISpectrumDiagnosticsController_2.getResult(500)
7 ZYR.CriGetSpectrumDiagnostics: frequency 4294967295 rssi -2147483648
7 ZYR.CriGetSpectrumDiagnostics: frequency 19712000 rssi -412
ISpectrumDiagnosticsController_2.getStatus()
ISpectrumDiagnosticsController_2.getProgress()
ISpectrumDiagnosticsController_2.getProperties()
5 ZYR.CriGetSpectrumDiagnostics: GetSpectrumDiagnostics channel 2 status sub-band-scan-finished
result 0x0 0 ""
prints Status: sub-band-scan-finished, Progress: -1, Result: Frequency: 4294967295, Rssi: -2147483648\nFrequency: 19712000, Rssi: -412\nSpectrumDiagnosticsProperties: isLongHaul: 0, hasAdjustableDiplexer: 1, isRadioCarrierAggrCapable: 1, isSdcSupported: 0\n
)");
}

TEST_F(CriGetSpectrumDiagnosticsTest, CountOfZeroOrBelowGivesNoResultsAndSucceeds)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    auto& controller = node.channel1.spectrumDiagnosticsController;
    controller.onGetResult = {eTI_S_OK, Results{{1, 2}}};
    for (const int count : {0, -1, -2147483647 - 1}) {
        controller.reportedCount = count;
        const auto response = impl.execute(command(1, "get-result"));
        EXPECT_EQ(outcome(response), "result 0x0 0 \"\"");
        EXPECT_EQ(response.Result.size(), 0U);
        EXPECT_EQ(response.Status, "channel-scan-ongoing");
    }
}

TEST_F(CriGetSpectrumDiagnosticsTest, AtMost500ResultsAreTakenWhateverTheControllerSays)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    auto& controller = node.channel1.spectrumDiagnosticsController;
    Results results;
    for (std::uint32_t number = 1; number <= 500; ++number) {
        results.push_back({number, -static_cast<std::int32_t>(number)});
    }
    controller.onGetResult = {eTI_S_OK, results};
    for (const int count : {500, 501, 2147483647}) {
        controller.reportedCount = count;
        const auto response = impl.execute(command(1, "get-result"));
        ASSERT_EQ(response.Result.size(), 500U);
        EXPECT_EQ(response.Result.front().Frequency, 1U);
        EXPECT_EQ(response.Result.back().Frequency, 500U);
        EXPECT_EQ(response.Result.back().Rssi, -500);
    }
    controller.reportedCount = 499;
    EXPECT_EQ(impl.execute(command(1, "get-result")).Result.size(), 499U);
}

TEST_F(CriGetSpectrumDiagnosticsTest, FailingReadKeepsItsResultsButNotTheStatus)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.CriGetSpectrumDiagnostics", 7);
    node.channel1.spectrumDiagnosticsController.onGetResult = {0x8000, Results{{19712000, -412}}};
    const auto response = tell(impl.execute(command(1, "get-result")));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 1, RequestOption: get-result\n
ISpectrumDiagnosticsController_1.getResult(500)
7 ZYR.CriGetSpectrumDiagnostics: frequency 19712000 rssi -412
1 ZYR.CriGetSpectrumDiagnostics: Command failed get-result
result 0xA100 2 "Command failed get-result"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Command failed get-result
)");
    ASSERT_EQ(response.Result.size(), 1U);
    EXPECT_EQ(response.Result[0].Frequency, 19712000U);
    EXPECT_EQ(response.Result[0].Rssi, -412);
    EXPECT_EQ(response.Status, "unknown");
    EXPECT_EQ(response.Progress, 0);
    EXPECT_FALSE(response.SpectrumDiagnosticsProperties.isLongHaul);
    EXPECT_FALSE(response.SpectrumDiagnosticsProperties.isRadioCarrierAggrCapable);
}

// Failures.

TEST_F(CriGetSpectrumDiagnosticsTest, ControllerThatRefusesAScanControlGivesTheInvalidArgument)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.spectrumDiagnosticsController.onScanControl.inTurn({0x8000, 0xFFFFFFFFU, 0xA200});
    setTraceLevel("ZYR.CriGetSpectrumDiagnostics", 7);
    tell(impl.execute(command(1, "channel-scan-start", 1)));
    tell(impl.execute(command(1, "sub-band-scan-start", 2)));
    tell(impl.execute(command(1, "scan-stop", 3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 1, RequestOption: channel-scan-start, DmSleep: 1\n
ISpectrumDiagnosticsController_1.scanControl(0, 1)
1 ZYR.CriGetSpectrumDiagnostics: Command failed channel-scan-start
result 0xA100 2 "Command failed channel-scan-start"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Command failed channel-scan-start
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 1, RequestOption: sub-band-scan-start, DmSleep: 2\n
ISpectrumDiagnosticsController_1.scanControl(1, 2)
1 ZYR.CriGetSpectrumDiagnostics: Command failed sub-band-scan-start
result 0xA100 2 "Command failed sub-band-scan-start"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Command failed sub-band-scan-start
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 1, RequestOption: scan-stop, DmSleep: 3\n
ISpectrumDiagnosticsController_1.scanControl(2, 3)
1 ZYR.CriGetSpectrumDiagnostics: Command failed scan-stop
result 0xA100 2 "Command failed scan-stop"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Command failed scan-stop
)");
}

TEST_F(CriGetSpectrumDiagnosticsTest, GreatestSuccessOfTheControllerIsSuccess)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    auto& controller = node.channel1.spectrumDiagnosticsController;
    controller.onScanControl = 0x7FFF;
    controller.onGetResult = 0x7FFF;
    EXPECT_EQ(outcome(impl.execute(command(1, "channel-scan-start", 1))), "result 0x0 0 \"\"");
    EXPECT_EQ(outcome(impl.execute(command(1, "get-result"))), "result 0x0 0 \"\"");
}

TEST_F(CriGetSpectrumDiagnosticsTest, StartWithoutASleepIsRefusedWithoutACall)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.CriGetSpectrumDiagnostics", 7);
    tell(impl.execute(command(1, "channel-scan-start")));
    tell(impl.execute(command(0, "sub-band-scan-start")));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 1, RequestOption: channel-scan-start\n
1 ZYR.CriGetSpectrumDiagnostics: Missing argument for command channel-scan-start
result 0xA100 2 "Missing argument for command channel-scan-start"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Missing argument for command channel-scan-start
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 0, RequestOption: sub-band-scan-start\n
1 ZYR.CriGetSpectrumDiagnostics: Missing argument for command sub-band-scan-start
result 0xA100 2 "Missing argument for command sub-band-scan-start"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Missing argument for command sub-band-scan-start
)");
}

TEST_F(CriGetSpectrumDiagnosticsTest, StopWithoutASleepThrowsAndLeavesTheDispatcherFree)
{
    enrol<CriGetSpectrumDiagnosticsImpl>();
    EXPECT_THROW(criGetSpectrumDiagnostics(command(1, "scan-stop")), general_classes::BadOptional);
    EXPECT_EQ(transcript.text(), "\n");
    EXPECT_EQ(outcome(criGetSpectrumDiagnostics(command(1, "get-status"))), "result 0x0 0 \"\"");
}

TEST_F(CriGetSpectrumDiagnosticsTest, OptionsAreComparedExactly)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.CriGetSpectrumDiagnostics", 7);
    tell(impl.execute(command(1, "Get-Status")));
    tell(impl.execute(command(0, "", 5)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 1, RequestOption: Get-Status\n
1 ZYR.CriGetSpectrumDiagnostics: Command failed Get-Status
result 0xA100 2 "Command failed Get-Status"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Command failed Get-Status
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 0, RequestOption: , DmSleep: 5\n
1 ZYR.CriGetSpectrumDiagnostics: Command failed\x20
result 0xA100 2 "Command failed "
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Command failed\x20
)");
    for (const std::string option :
         {"get-statu", "get-status ", " get-status", "channel-scan-start ", "scan-sto", "get-results",
          "get-scan-propertie", "sub-band-scan-Start"}) {
        EXPECT_EQ(outcome(impl.execute(command(1, option, 1))),
                  "result 0xA100 2 \"Command failed " + option + "\"");
    }
    EXPECT_EQ(outcome(impl.execute(command(1, std::string("get-status\0", 11)))),
              "result 0xA100 2 \"Command failed get-status" + std::string(1, '\0') + "\"");
}

TEST_F(CriGetSpectrumDiagnosticsTest, ChannelAboveTheCountIsToldWithItsNumberInTheTraceAlone)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.CriGetSpectrumDiagnostics", 7);
    tell(impl.execute(command(2, "channel-scan-start")));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.CriGetSpectrumDiagnostics: command.toString()=RadioChannelID: 2, RequestOption: channel-scan-start\n
1 ZYR.CriGetSpectrumDiagnostics: RadioChannelID 2 out of bounds
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
    EXPECT_EQ(outcome(impl.execute(command(1, "get-status"))), "result 0x0 0 \"\"");
}

TEST_F(CriGetSpectrumDiagnosticsTest, Channel0PassesTheBoundCheckAndReachesNoController)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, "get-status")); }),
              "ISpectrumDiagnosticsController of radio channel 0");
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, "get-result")); }),
              "ISpectrumDiagnosticsController of radio channel 0");
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, "channel-scan-start", 1)); }),
              "ISpectrumDiagnosticsController of radio channel 0");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CriGetSpectrumDiagnosticsTest, RecordsPrintTheirDefaults)
{
    EXPECT_EQ(CriGetSpectrumDiagnostics::Command().toString(), "RadioChannelID: 1, RequestOption: \n");
    EXPECT_EQ(CriGetSpectrumDiagnostics::Response().printResponse(),
              "Status: unknown, Progress: 0, Result: SpectrumDiagnosticsProperties: isLongHaul: 0, "
              "hasAdjustableDiplexer: 0, isRadioCarrierAggrCapable: 0, isSdcSupported: 0\n");
}

// initialize

TEST_F(CriGetSpectrumDiagnosticsTest, InitialiseTestsTheRangeBeforeTheSecondCall)
{
    setTraceLevel("ZYR.CriGetSpectrumDiagnostics", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CriGetSpectrumDiagnostics: numberOfChannels=0
1 ZYR.CriGetSpectrumDiagnostics: Error numberOfChannels is out of range (0)
6 ZYR.CriGetSpectrumDiagnostics: numberOfChannels=2
6 ZYR.CriGetSpectrumDiagnostics: numberOfChannels=3
1 ZYR.CriGetSpectrumDiagnostics: Error numberOfChannels is out of range (3)
6 ZYR.CriGetSpectrumDiagnostics: numberOfChannels=1
1 ZYR.CriGetSpectrumDiagnostics: Already initialized
)x");
    EXPECT_EQ(outcome(impl.execute(command(2, "get-status"))), "result 0x0 0 \"\"");
}

TEST_F(CriGetSpectrumDiagnosticsTest, FailedInitialiseCountsAsTheOneCall)
{
    withdraw("ISpectrumDiagnosticsController_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(node.channel2.spectrumDiagnosticsController);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.CriGetSpectrumDiagnostics: Error getting interface to ISpectrumDiagnosticsController_2
1 ZYR.CriGetSpectrumDiagnostics: Already initialized
)");
    EXPECT_EQ(outcome(impl.execute(command(1, "get-status"))), "result 0x0 0 \"\"");
    EXPECT_EQ(missingIn([&] { impl.execute(command(2, "get-status")); }),
              "ISpectrumDiagnosticsController of radio channel 2");
}

} // namespace
} // namespace zyr_top_api
