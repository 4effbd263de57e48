#include "CommandTest.h"
#include "NodeDoubles.h"
#include "TiManageMimoImpl.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace zyr_top_api
{
namespace
{

using bcm::types::ModemChain;

class TiManageMimoTest : public zyr_test::CommandTest
{
  protected:
    TiManageMimoTest()
    {
        publishNode(node);
        node.channel1.dspApi.statusApi.onMimoStatusGet = {eTI_S_OK, status(100)};
        node.channel2.dspApi.statusApi.onMimoStatusGet = {eTI_S_OK, status(200)};
        transcript.clear();
    }

    static MimoStatusStruct status(std::int32_t base)
    {
        return {.gainDifferenceDbTenths = -base - 1,
                .etaTenThousands = static_cast<std::uint32_t>(base) + 2,
                .slaveSweepInProgress = base == 100,
                .spatialSlaveSweepStatus = base == 200,
                .xpdDbTenths = base + 5,
                .spatialXpdDbTenths = -base - 6,
                .spatialCarrierOffsetHz = base + 7,
                .slaveCarrierOffsetHz = -base - 8,
                .spatialSlaveCarrierOffsetHz = base + 9,
                .diversityMute = true};
    }

    static TiManageMimo::Command allButTheStatus(std::uint32_t channel)
    {
        TiManageMimo::Command command;
        command.radioChannelId = channel;
        command.configurationSet = true;
        command.diversityMuteSet = true;
        command.crossConnectDelayCalibrationStart = true;
        command.rxChainDelaySet = 65;
        command.rxChainDelayModemChain = ModemChain::MimoSpatial;
        return command;
    }

    static TiManageMimo::Command everything(std::uint32_t channel)
    {
        TiManageMimo::Command command = allButTheStatus(channel);
        command.crossConnectDelayCalibrationStatusGet = true;
        return command;
    }

    zyr_test::NodeDoubles node{transcript};
    TiManageMimoImpl impl;
};

TEST_F(TiManageMimoTest, EmptyCommandReadsTheStatusOfChannel1)
{
    openTestGate();
    enrol<TiManageMimoImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.TiManageMimo", 7);
    tell(tiManageMimo({}));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: TI.ManageMimo Request:\x20
6 ZYR.TI.TiManageMimo:
IDspStatusApi_1.mimoStatusGet()
5 ZYR.COMM: TI.ManageMimo Response: RadioChannelID: 1gainDifferenceDbTenths: -101, etaTenThousands: 102, slaveSweepInProgress: 1, spatialSlaveSweepStatus: 0, xpdDbTenths: 105, spatialXpdDbTenths: -106, spatialCarrierOffsetHz: 107, slaveCarrierOffsetHz: -108, spatialSlaveCarrierOffsetHz: 109, diversityMute: 1, CalibrationStatus: Unknown\n----------------------------------------------------\n
result 0x0 0 ""
prints RadioChannelID: 1gainDifferenceDbTenths: -101, etaTenThousands: 102, slaveSweepInProgress: 1, spatialSlaveSweepStatus: 0, xpdDbTenths: 105, spatialXpdDbTenths: -106, spatialCarrierOffsetHz: 107, slaveCarrierOffsetHz: -108, spatialSlaveCarrierOffsetHz: 109, diversityMute: 1, CalibrationStatus: Unknown
)");
}

TEST_F(TiManageMimoTest, ClosedGateRefusesIt)
{
    enrol<TiManageMimoImpl>();
    EXPECT_EQ(outcome(tiManageMimo({})), "result 0x8003 4 \"Error: Command not available\"");
}

TEST_F(TiManageMimoTest, StepsReachTheDspOfTheChannelInOrder)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(allButTheStatus(2)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_2.setRxChainDelay(4, 65)
IDspChannelApi_2.mimoDiversityMute(true)
IDspChannelApi_2.mimoConfigurationSet()
IDspChannelApi_2.mimoCrossConnectDelayCalibrationStart()
IDspStatusApi_2.mimoStatusGet()
result 0x0 0 ""
prints RadioChannelID: 2gainDifferenceDbTenths: -201, etaTenThousands: 202, slaveSweepInProgress: 0, spatialSlaveSweepStatus: 1, xpdDbTenths: 205, spatialXpdDbTenths: -206, spatialCarrierOffsetHz: 207, slaveCarrierOffsetHz: -208, spatialSlaveCarrierOffsetHz: 209, diversityMute: 1, CalibrationStatus: Unknown
)");
}

TEST_F(TiManageMimoTest, StartAndStatusOfTheCalibrationLeaveTheMimoStatusUnread)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel2.dspApi.channelApi.onMimoCrossConnectDelayCalibrationStatusGet = {
        eTI_S_OK, MimoCalibrationStatus::WaitingToStart};
    tell(impl.execute(everything(2)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_2.setRxChainDelay(4, 65)
IDspChannelApi_2.mimoDiversityMute(true)
IDspChannelApi_2.mimoConfigurationSet()
IDspChannelApi_2.mimoCrossConnectDelayCalibrationStart()
IDspChannelApi_2.mimoCrossConnectDelayCalibrationStatusGet()
result 0x0 0 ""
prints RadioChannelID: 2gainDifferenceDbTenths: 0, etaTenThousands: 0, slaveSweepInProgress: 0, spatialSlaveSweepStatus: 0, xpdDbTenths: 0, spatialXpdDbTenths: 0, spatialCarrierOffsetHz: 0, slaveCarrierOffsetHz: 0, spatialSlaveCarrierOffsetHz: 0, diversityMute: 0, CalibrationStatus: WaitingToStart
)");
}

TEST_F(TiManageMimoTest, ThreeFieldsCountByBeingThereAndOneByItsValue)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    TiManageMimo::Command command;
    command.configurationSet = false;
    command.diversityMuteSet = false;
    command.crossConnectDelayCalibrationStart = false;
    command.crossConnectDelayCalibrationStatusGet = false;
    EXPECT_EQ(outcome(impl.execute(command)), "result 0x0 0 \"\"");
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.mimoDiversityMute(false)
IDspChannelApi_1.mimoConfigurationSet()
IDspChannelApi_1.mimoCrossConnectDelayCalibrationStart()
IDspChannelApi_1.mimoCrossConnectDelayCalibrationStatusGet()
)");
}

TEST_F(TiManageMimoTest, DelayWithoutAChainIsForChain6)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    TiManageMimo::Command command;
    command.rxChainDelaySet = 7;
    impl.execute(command);
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.setRxChainDelay(6, 7)
IDspStatusApi_1.mimoStatusGet()
)");
}

TEST_F(TiManageMimoTest, ChainWithoutADelaySetsNothing)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    TiManageMimo::Command command;
    command.rxChainDelayModemChain = ModemChain::Main;
    impl.execute(command);
    EXPECT_EQ(transcript.text(), R"(
IDspStatusApi_1.mimoStatusGet()
)");
}

TEST_F(TiManageMimoTest, DspGetsTheLow8BitsOfTheDelayAndAnyChain)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    TiManageMimo::Command command;
    for (const std::int32_t delay : {300, 255, 256, -1, -2147483647 - 1}) {
        command.rxChainDelaySet = delay;
        command.rxChainDelayModemChain = static_cast<ModemChain>(4294967295U);
        transcript.clear();
        impl.execute(command);
        const auto low = static_cast<unsigned>(delay) & 0xFFU;
        EXPECT_EQ(transcript.lines().at(0),
                  "IDspChannelApi_1.setRxChainDelay(4294967295, " + std::to_string(low) + ")");
    }
    command.rxChainDelaySet = 300;
    transcript.clear();
    impl.execute(command);
    EXPECT_EQ(transcript.lines().at(0), "IDspChannelApi_1.setRxChainDelay(4294967295, 44)");
}

// Failures.

TEST_F(TiManageMimoTest, Result4095IsSuccessAnd4096Failure)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel2.dspApi.statusApi.onMimoStatusGet.inTurn({{4095, status(200)}, {4096, status(200)}});
    setTraceLevel("ZYR.TI.TiManageMimo", 7);
    TiManageMimo::Command command;
    command.radioChannelId = 2U;
    EXPECT_EQ(outcome(impl.execute(command)), "result 0x0 0 \"\"");
    tell(impl.execute(command));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageMimo:
IDspStatusApi_2.mimoStatusGet()
6 ZYR.TI.TiManageMimo:
IDspStatusApi_2.mimoStatusGet()
result 0x8000 4 "channel 2: mimoStatusGet() failed: 4096"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: channel 2: mimoStatusGet() failed: 4096
)");
}

TEST_F(TiManageMimoTest, DspThatWritesNothingLeavesAStatusOfZeroes)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    node.channel1.dspApi.statusApi.onMimoStatusGet = eTI_S_OK;
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
IDspStatusApi_1.mimoStatusGet()
result 0x0 0 ""
prints RadioChannelID: 1gainDifferenceDbTenths: 0, etaTenThousands: 0, slaveSweepInProgress: 0, spatialSlaveSweepStatus: 0, xpdDbTenths: 0, spatialXpdDbTenths: 0, spatialCarrierOffsetHz: 0, slaveCarrierOffsetHz: 0, spatialSlaveCarrierOffsetHz: 0, diversityMute: 0, CalibrationStatus: Unknown
)");
}

TEST_F(TiManageMimoTest, EveryOperationSucceedsUpTo4095)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    auto& channelApi = node.channel1.dspApi.channelApi;
    channelApi.onSetRxChainDelay = 4095;
    channelApi.onMimoDiversityMute = 4095;
    channelApi.onMimoConfigurationSet = 4095;
    channelApi.onMimoCrossConnectDelayCalibrationStart = 4095;
    channelApi.onMimoCrossConnectDelayCalibrationStatusGet = {4095, MimoCalibrationStatus::Success};
    const auto response = impl.execute(everything(1));
    EXPECT_EQ(outcome(response), "result 0x0 0 \"\"");
    EXPECT_EQ(response.calibrationStatus, MimoCalibrationStatus::Success);
}

TEST_F(TiManageMimoTest, DspWithoutMimoFailsAnEmptyCommand)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.dspApi.statusApi.defaultsInForce = true;
    EXPECT_EQ(outcome(impl.execute({})), "result 0x8000 4 \"channel 1: mimoStatusGet() failed: 4100\"");
}

TEST_F(TiManageMimoTest, DspWithoutMimoFailsEveryStep)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.dspApi.channelApi.defaultsInForce = true;
    TiManageMimo::Command command = everything(1);
    EXPECT_EQ(outcome(impl.execute(command)),
              "result 0x8000 4 \"channel 1: setRxChainDelay(MimoSpatial, A) failed: 4100\"");
    command.rxChainDelaySet.reset();
    EXPECT_EQ(outcome(impl.execute(command)),
              "result 0x8000 4 \"channel 1: diversityMuteSet(true) failed: 4100\"");
    command.diversityMuteSet.reset();
    EXPECT_EQ(outcome(impl.execute(command)),
              "result 0x8000 4 \"channel 1: mimoConfigurationSet() failed: 4100\"");
    command.configurationSet.reset();
    EXPECT_EQ(outcome(impl.execute(command)),
              "result 0x8000 4 \"channel 1: crossConnectDelayCalibrationStart() failed: 4100\"");
    command.crossConnectDelayCalibrationStart.reset();
    EXPECT_EQ(outcome(impl.execute(command)),
              "result 0x8000 4 \"channel 1: crossConnectDelayCalibrationStatusGet() failed: 4100\"");
}

// From the last step to the first, each failure is added to those behind it: the first one ends the command.
TEST_F(TiManageMimoTest, FirstFailureEndsTheCommandAndTheStepsBeforeStay)
{
    struct BrokenStep
    {
        std::function<void()> breakStep;
        std::size_t calls;
        const char* text;
    };
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageMimo", 7);
    auto& channelApi = node.channel2.dspApi.channelApi;
    const std::vector<BrokenStep> rows{
        {[&] { channelApi.onMimoCrossConnectDelayCalibrationStatusGet = 0x1001; }, 5,
         "channel 2: crossConnectDelayCalibrationStatusGet() failed: 4097"},
        {[&] { channelApi.onMimoCrossConnectDelayCalibrationStart = 0x1002; }, 4,
         "channel 2: crossConnectDelayCalibrationStart() failed: 4098"},
        {[&] { channelApi.onMimoConfigurationSet = 0x8000; }, 3,
         "channel 2: mimoConfigurationSet() failed: 32768"},
        {[&] { channelApi.onMimoDiversityMute = 0x1000; }, 2,
         "channel 2: diversityMuteSet(true) failed: 4096"},
        {[&] { channelApi.onSetRxChainDelay = 0xFFFFFFFFU; }, 1,
         "channel 2: setRxChainDelay(MimoSpatial, A) failed: 4294967295"},
    };
    const std::vector<std::string> calls{
        "IDspChannelApi_2.setRxChainDelay(4, 65)", "IDspChannelApi_2.mimoDiversityMute(true)",
        "IDspChannelApi_2.mimoConfigurationSet()", "IDspChannelApi_2.mimoCrossConnectDelayCalibrationStart()",
        "IDspChannelApi_2.mimoCrossConnectDelayCalibrationStatusGet()"};
    for (const BrokenStep& row : rows) {
        row.breakStep();
        transcript.clear();
        tell(impl.execute(everything(2)));
        std::string expected = "\n6 ZYR.TI.TiManageMimo:\n";
        for (std::size_t call = 0; call < row.calls; ++call) {
            expected += calls[call] + "\n";
        }
        expected += "result 0x8000 4 \"" + std::string(row.text) + "\"\n";
        expected +=
            "prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: " + std::string(row.text) + "\n";
        EXPECT_EQ(transcript.text(), expected);
    }
}

TEST_F(TiManageMimoTest, FailureReplacesTheWholeResponse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel2.dspApi.statusApi.onMimoStatusGet = {0x8000, status(200)};
    TiManageMimo::Command command;
    command.radioChannelId = 2U;
    const auto response = impl.execute(command);
    EXPECT_EQ(response.radioChannelId, 1U);
    EXPECT_EQ(response.gainDifferenceDbTenths, 0);
    EXPECT_EQ(response.etaTenThousands, 0U);
    EXPECT_FALSE(response.spatialSlaveSweepStatus);
    EXPECT_FALSE(response.diversityMute);
    EXPECT_EQ(response.spatialSlaveCarrierOffsetHz, 0);
    node.channel2.dspApi.channelApi.onMimoCrossConnectDelayCalibrationStatusGet = {
        0x1000, MimoCalibrationStatus::Success};
    EXPECT_EQ(impl.execute(everything(2)).calibrationStatus, static_cast<MimoCalibrationStatus>(6));
}

TEST_F(TiManageMimoTest, TextOfAFailedDelayHoldsOneRawByteAndTheNameOfTheChain)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    node.channel1.dspApi.channelApi.onSetRxChainDelay = 4096;
    TiManageMimo::Command command;
    command.rxChainDelaySet = 256;
    EXPECT_EQ(impl.execute(command).faultString,
              "channel 1: setRxChainDelay(Max, " + std::string(1, '\0') + ") failed: 4096");
    command.rxChainDelaySet = 200;
    command.rxChainDelayModemChain = static_cast<ModemChain>(7);
    EXPECT_EQ(impl.execute(command).faultString, "channel 1: setRxChainDelay(Max, \xC8) failed: 4096");
    const std::vector<std::string> names{
        "Main", "XpicSlave", "MrcDiversity", "MrcDiversitySlave", "MimoSpatial", "MimoXSpatialSlave", "Max"};
    command.rxChainDelaySet = 'z';
    for (std::uint32_t chain = 0; chain < names.size(); ++chain) {
        command.rxChainDelayModemChain = static_cast<ModemChain>(chain);
        EXPECT_EQ(impl.execute(command).faultString,
                  "channel 1: setRxChainDelay(" + names[chain] + ", z) failed: 4096");
    }
}

TEST_F(TiManageMimoTest, FailedUnmuteIsToldAsSuch)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    node.channel1.dspApi.channelApi.onMimoDiversityMute = 4100;
    TiManageMimo::Command command;
    command.diversityMuteSet = false;
    EXPECT_EQ(impl.execute(command).faultString, "channel 1: diversityMuteSet(false) failed: 4100");
}

TEST_F(TiManageMimoTest, ChannelAboveTheCountIsToldWithItsNumberAndSilently)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageMimo", 7);
    TiManageMimo::Command command = everything(2);
    tell(impl.execute(command));
    command.radioChannelId = 4294967295U;
    EXPECT_EQ(outcome(impl.execute(command)), "result 0xA100 2 \"RadioChannelID out of bounds: 4294967295\"");
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageMimo:
result 0xA100 2 "RadioChannelID out of bounds: 2"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds: 2
6 ZYR.TI.TiManageMimo:
)");
}

TEST_F(TiManageMimoTest, Channel0PassesTheBoundCheckAndReachesNoDsp)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute(everything(0)); }), "IDspChannelApi of radio channel 0");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiManageMimoTest, ObjectThatWasNotInitialisedSaysSoBeforeItLooksAtTheChannel)
{
    setTraceLevel("ZYR.TI.TiManageMimo", 7);
    tell(impl.execute(everything(3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageMimo:
result 0x8000 4 "TiManageMimoImpl has not been initialized"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TiManageMimoImpl has not been initialized
)");
}

TEST_F(TiManageMimoTest, CommandPrintsWhatItHoldsWithoutSeparators)
{
    EXPECT_EQ(TiManageMimo::Command().toString(), "");
    EXPECT_EQ(everything(2).toString(),
              "RadioChannelID: 2ConfigurationSet: 1DiversityMuteSet: 1CrossConnectDelayCalibrationStart: "
              "1CrossConnectDelayCalibrationStatusGet: 1RxChainDelaySet: 65RxChainDelayModemChain: "
              "MimoSpatial");
    TiManageMimo::Command command;
    command.configurationSet = false;
    command.rxChainDelaySet = -300;
    command.rxChainDelayModemChain = static_cast<ModemChain>(99);
    EXPECT_EQ(command.toString(), "ConfigurationSet: 0RxChainDelaySet: -300RxChainDelayModemChain: Max");
}

TEST_F(TiManageMimoTest, EveryCalibrationStatusHasItsText)
{
    TiManageMimo::Response response;
    const std::vector<std::string> names{
        "Disabled",       "InProgress",     "Success", "NoCorrelationFailure",
        "TimeoutFailure", "WaitingToStart", "Unknown", "Unknown"};
    for (std::uint32_t status = 0; status < names.size(); ++status) {
        response.calibrationStatus = static_cast<MimoCalibrationStatus>(status);
        EXPECT_TRUE(response.printResponse().ends_with(", CalibrationStatus: " + names[status]));
    }
}

// A step can be replaced; each replacement stands in the transcript.
class ReplacedSteps : public TiManageMimoImpl
{
  public:
    explicit ReplacedSteps(zyr_test::Transcript& transcript) : m_transcript(transcript) {}

    void rxChainDelaySet(Response& response, RadioChannel channel, ModemChain chain,
                         unsigned char delay) override
    {
        m_transcript.add("rxChainDelaySet " + std::to_string(channel) + " " +
                         std::to_string(static_cast<unsigned>(chain)) + " " + std::to_string(delay));
        response.etaTenThousands = 1;
    }
    void diversityMuteSet(Response& response, RadioChannel channel, bool mute) override
    {
        m_transcript.add("diversityMuteSet " + std::to_string(channel) + (mute ? " true" : " false"));
        response.xpdDbTenths = 2;
    }
    void configurationSet(Response& response, RadioChannel channel) override
    {
        m_transcript.add("configurationSet " + std::to_string(channel));
        response.tiResult = configurationResult;
    }
    void statusGet(Response& response, RadioChannel channel) override
    {
        m_transcript.add("statusGet " + std::to_string(channel));
        response.spatialXpdDbTenths = 3;
    }
    void crossConnectDelayCalibrationStart(Response&, RadioChannel channel) override
    {
        m_transcript.add("crossConnectDelayCalibrationStart " + std::to_string(channel));
    }
    void crossConnectDelayCalibrationStatusGet(Response&, RadioChannel channel) override
    {
        m_transcript.add("crossConnectDelayCalibrationStatusGet " + std::to_string(channel));
    }

    ETIResult configurationResult = eTI_S_OK;

  private:
    zyr_test::Transcript& m_transcript;
};

TEST_F(TiManageMimoTest, ReplacedStepsRunInOrderOnOneResponse)
{
    ReplacedSteps steps(transcript);
    ASSERT_EQ(steps.initialize(2), eTI_S_OK);
    const auto response = steps.execute(allButTheStatus(2));
    EXPECT_EQ(response.etaTenThousands, 1U);
    EXPECT_EQ(response.xpdDbTenths, 2);
    EXPECT_EQ(response.spatialXpdDbTenths, 3);
    EXPECT_EQ(response.radioChannelId, 2U);
    steps.execute(everything(1));
    EXPECT_EQ(transcript.text(), R"(
rxChainDelaySet 2 4 65
diversityMuteSet 2 true
configurationSet 2
crossConnectDelayCalibrationStart 2
statusGet 2
rxChainDelaySet 1 4 65
diversityMuteSet 1 true
configurationSet 1
crossConnectDelayCalibrationStart 1
crossConnectDelayCalibrationStatusGet 1
)");
}

TEST_F(TiManageMimoTest, AnyResultAboveZeroOfAStepEndsTheCommandWithTheResponseAsItStands)
{
    ReplacedSteps steps(transcript);
    ASSERT_EQ(steps.initialize(2), eTI_S_OK);
    steps.configurationResult = eTI_S_TRUE;
    const auto response = steps.execute(everything(2));
    EXPECT_EQ(response.tiResult, 1U);
    EXPECT_EQ(response.xpdDbTenths, 2);
    EXPECT_EQ(transcript.text(), R"(
rxChainDelaySet 2 4 65
diversityMuteSet 2 true
configurationSet 2
)");
}

// initialize

TEST_F(TiManageMimoTest, InitialiseGuardsTheSecondCallBeforeTheRange)
{
    setTraceLevel("ZYR.TI.TiManageMimo", 7);
    EXPECT_EQ(impl.initialize(0), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageMimo: numberOfChannels=0
1 ZYR.TI.TiManageMimo: numberOfChannels is out of bounds
6 ZYR.TI.TiManageMimo: numberOfChannels=3
1 ZYR.TI.TiManageMimo: numberOfChannels is out of bounds
6 ZYR.TI.TiManageMimo: numberOfChannels=1
6 ZYR.TI.TiManageMimo: numberOfChannels=3
1 ZYR.TI.TiManageMimo: TiManageMimoImpl has already been initialized
)");
}

TEST_F(TiManageMimoTest, InitialiseTellsWhatIsMissingOfWhichChannelAndCanBeRepeated)
{
    node.channel2.dspApi.onGetDspChannelApi = nullptr;
    node.channel2.dspApi.onGetDspStatusApi = nullptr;
    EXPECT_EQ(impl.initialize(2), 0x8000);
    node.channel2.dspApi.onGetDspChannelApi = &node.channel2.dspApi.channelApi;
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(outcome(impl.execute({})), "result 0x8000 4 \"TiManageMimoImpl has not been initialized\"");
    withdraw("IDspApi_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.TiManageMimo: failed to fetch interface IDspChannelApi for radio channel 2
1 ZYR.TI.TiManageMimo: failed to fetch interface IDspStatusApi for radio channel 2
1 ZYR.TI.TiManageMimo: channel 1: Failed to fetch interface for IDspApi
)");
    publish(node.channel1.dspApi);
    node.channel2.dspApi.onGetDspStatusApi = &node.channel2.dspApi.statusApi;
    EXPECT_EQ(impl.initialize(2), 0);
}

} // namespace
} // namespace zyr_top_api
