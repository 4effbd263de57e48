// The driver of "CRI.SetRadioChannelNearEnd": its collaborators, its passes, and the print of its command.

#include "CriSetRadioChannelNearEndFixture.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace zyr_top_api
{
namespace
{

using zyr_test::failedWith;
using zyr_test::kOutOfBounds;
using zyr_test::kSuccess;
using NearEndDriverTest = zyr_test::NearEndTest;

// --- initialize

class NearEndInitialiseTest : public zyr_test::CommandTest
{
  protected:
    NearEndInitialiseTest() { setTraceLevel("ZYR.TI.CriSetRadioChannelNearEnd", 7); }

    void publishAll(unsigned numberOfChannels)
    {
        publishNode(node, numberOfChannels);
        transcript.clear();
    }

    zyr_test::NodeDoubles node{transcript};
    CriSetRadioChannelNearEndImpl impl;
};

TEST_F(NearEndInitialiseTest, FindsEverythingAndSaysDone)
{
    publishAll(2);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetRadioChannelNearEnd:
6 ZYR.TI.CriSetRadioChannelNearEnd: Done
)");
}

TEST_F(NearEndInitialiseTest, OneChannelNeedsNothingOfTheSecond)
{
    publishAll(1);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetRadioChannelNearEnd:
6 ZYR.TI.CriSetRadioChannelNearEnd: Done
)");
}

TEST_F(NearEndInitialiseTest, RefusesOtherNumbersOfChannelsAndStoresNothing)
{
    publishAll(2);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(4294967295U), 0xA100);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetRadioChannelNearEnd:
1 ZYR.TI.CriSetRadioChannelNearEnd: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriSetRadioChannelNearEnd:
1 ZYR.TI.CriSetRadioChannelNearEnd: Error: numberOfChannels is out of range (3)
6 ZYR.TI.CriSetRadioChannelNearEnd:
1 ZYR.TI.CriSetRadioChannelNearEnd: Error: numberOfChannels is out of range (4294967295)
)");
    EXPECT_EQ(outcome(impl.execute({})), kOutOfBounds);
}

TEST_F(NearEndInitialiseTest, RefusedNumberKeepsWhatAnEarlierCallFound)
{
    publishAll(2);
    ASSERT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    node.channel2.systemPowerController.onIsConfigurationBypassed = true;
    CriSetRadioChannelNearEnd::Command command;
    command.RadioChannelID = RadioChannel(2);
    EXPECT_EQ(outcome(impl.execute(command)), kSuccess);
}

// One collaborator that is missing, and what is said of it.
struct Missing
{
    const char* name;
    const char* line; // nothing: silence
    bool isFailure;
};

const std::vector<Missing> kMissing = {
    {"IHardwareConfigurationHandler", "1: Could not find the Hardware Configuration Handler interface", true},
    {"ICapabilityHandler_1", "1: Error getting interface: ICapabilityHandler_1", true},
    {"ISystemPowerController_1", "1: Could not find the System Power Controller interface", true},
    {"IOutputPowerController_1", "1: Could not find : IOutputPowerController_1", true},
    {"ICcdpController_1", "", false},
    {"IMimoController_1", "", false},
    {"IAcmHandler_1", "1: Could not find the AdMod Handler interface", true},
    {"IRssiHandler_1", "1: Could not find the RSSI Handler interface", true},
    {"IFrequencyController_1", "1: Could not find the Frequency Controller interface", true},
    {"ITxIQImbalanceHandler_1", "4: Could not find the Tx IQImbalance Handler interface", false},
    {"IDspApi_1", "1: Could not find the DSP API interface", true},
    {"IRadioCapability_1", "1: Error getting interface: IRadioCapability_1", true},
    {"IRadio_1", "4: Did not find interface: IRadio_1", false},
    {"IPpsController1", "4: Interface not available: IPpsController1", false},
    {"IRauHandler_1", "4: Did not find interface: IRauHandler_1", false},
    {"ICapabilityHandler_2", "1: Error getting interface: ICapabilityHandler_2", true},
    {"ISystemPowerController_2", "1: Could not find the System Power Controller interface", true},
    {"IOutputPowerController_2", "1: Could not find : IOutputPowerController_2", true},
    {"ICcdpController_2", "", false},
    {"IMimoController_2", "", false},
    {"IAcmHandler_2", "1: Could not find the AdMod Handler interface", true},
    {"IRssiHandler_2", "1: Could not find the RSSI Handler interface", true},
    {"IFrequencyController_2", "1: Could not find the Frequency Controller interface", true},
    {"ITxIQImbalanceHandler_2", "4: Could not find the Tx IQImbalance Handler interface", false},
    {"IDspApi_2", "1: Could not find the DSP API interface", true},
    {"IRadioCapability_2", "1: Error getting interface: IRadioCapability_2", true},
    {"IRadio_2", "4: Did not find interface: IRadio_2", false},
    {"IPpsController2", "4: Interface not available: IPpsController2", false},
    {"IRauHandler_2", "4: Did not find interface: IRauHandler_2", false},
    {"RecoveryController", "4: RecoveryController Interface not available", false},
};

// "<level>: <text>" as a line of the transcript.
std::string traceLine(const std::string& line)
{
    return line.empty() ? "" : line[0] + (" ZYR.TI.CriSetRadioChannelNearEnd" + line.substr(1)) + "\n";
}

TEST_F(NearEndInitialiseTest, NamesEachMissingCollaborator)
{
    for (const Missing& missing : kMissing) {
        SCOPED_TRACE(missing.name);
        publishAll(2);
        withdraw(missing.name);
        EXPECT_EQ(impl.initialize(2), missing.isFailure ? 0x8000 : 0);
        EXPECT_EQ(transcript.text(), "\n" + traceLine("6:") + traceLine(missing.line) +
                                         (missing.isFailure ? "" : traceLine("6: Done")));
        node.forEach(2, [&](auto& collaborator) {
            if (collaborator.name() != missing.name) {
                withdraw(collaborator.name());
            }
        });
    }
}

// Publishes one collaborator after the other: what is said goes one further each time.
TEST_F(NearEndInitialiseTest, LooksUpInOneFixedOrder)
{
    std::string absent; // what is said of the optional ones, which stay away
    for (const Missing& missing : kMissing) {
        SCOPED_TRACE(missing.name);
        if (!missing.isFailure) {
            absent += traceLine(missing.line);
            continue;
        }
        transcript.clear();
        EXPECT_EQ(impl.initialize(2), 0x8000);
        EXPECT_EQ(transcript.text(), "\n" + traceLine("6:") + absent + traceLine(missing.line));
        node.forEach(2, [&](auto& collaborator) {
            if (collaborator.name() == missing.name) {
                publish(collaborator);
            }
        });
    }
    transcript.clear();
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), "\n" + traceLine("6:") + absent + traceLine("6: Done"));
}

TEST_F(NearEndInitialiseTest, PpsControllerIsntFoundUnderANameWithAnUnderscore)
{
    publishAll(1);
    withdraw("IPpsController1");
    publish("IPpsController_1", node.channel1.ppsController);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetRadioChannelNearEnd:
4 ZYR.TI.CriSetRadioChannelNearEnd: Interface not available: IPpsController1
6 ZYR.TI.CriSetRadioChannelNearEnd: Done
)");
}

TEST_F(NearEndInitialiseTest, ObjectOfAnotherTypeCountsAsMissing)
{
    publishAll(1);
    withdraw("IRssiHandler_1");
    publish("IRssiHandler_1", node.channel1.acmHandler);
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetRadioChannelNearEnd:
1 ZYR.TI.CriSetRadioChannelNearEnd: Could not find the RSSI Handler interface
)");
}

TEST_F(NearEndInitialiseTest, SecondCallFetchesTheCollaboratorsAnew)
{
    publishAll(1);
    ASSERT_EQ(impl.initialize(1), 0);
    withdraw("ISystemPowerController_1");
    zyr_test::SystemPowerControllerDouble other(transcript, "other");
    other.onIsConfigurationBypassed = true;
    publish("ISystemPowerController_1", other);
    EXPECT_EQ(impl.initialize(1), 0);
    transcript.clear();
    setTraceLevel("ZYR.TI.CriSetRadioChannelNearEnd", 3);
    impl.execute({});
    EXPECT_EQ(transcript.text(), R"(
other.isConfigurationBypassed()
group 5 for channel 1
)");
}

TEST_F(NearEndInitialiseTest, FailedCallLeavesTheNumberOfChannelsSet)
{
    publishAll(2);
    withdraw("ICapabilityHandler_2");
    ASSERT_EQ(impl.initialize(2), 0x8000);
    node.channel1.systemPowerController.onIsConfigurationBypassed = true;
    EXPECT_EQ(outcome(impl.execute({})), kSuccess);
    CriSetRadioChannelNearEnd::Command command;
    command.RadioChannelID = RadioChannel(2);
    EXPECT_EQ(missingIn([&] { impl.execute(command); }), "ISystemPowerController of radio channel 2");
}

// --- execute: the channel

TEST_F(NearEndDriverTest, ChannelAboveTheNumberOfChannelsReachesNoCollaborator)
{
    ASSERT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(run(command(2)), kOutOfBounds);
    EXPECT_EQ(run(command(4294967295U)), kOutOfBounds);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(NearEndDriverTest, RefusedChannelLeavesTheEntryAlone)
{
    showAllLevels();
    Command refused = command(3);
    refused.rauMultiTrxConfig.ifSwitchMode.reset();
    EXPECT_EQ(run(refused), kOutOfBounds);
    EXPECT_EQ(transcript.text(),
              R"(
6 ZYR.TI.CriSetRadioChannelNearEnd: msg:RadioChannelID: 3, radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H, txFrequency_kHz: 18000000, rxFrequency_kHz: 19010000, xpicParameterPresent: 1, xpicEnable: Enable_A, mimoParameterPresent: 1, mimoEnable: Disable, ffConfigTypePresent: 1, FFConfigType: Xpic, splitMode: 0, iduMacAddress: 0:0:0:0:0:0, oduMacAddress: 0:0:0:0:0:0, ppsSlave: 1, ppsOutputMode:Auto\n
)");
}

TEST_F(NearEndDriverTest, LastChannelOfTheNodeIsConfiguredByItsOwnCollaborators)
{
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(count("_1."), 0U);
    EXPECT_EQ(linesWith({"group 5", "enableAcm"}), R"(
IAcmHandler_2.enableAcm(true)
group 5 for channel 2
)");
}

TEST_F(NearEndDriverTest, Channel0AsksChannel1AndIsRefusedInTheConfigurationWithoutRetry)
{
    EXPECT_EQ(run(command(0)), failedWith("ChannelId out of bounds: 0"));
    EXPECT_EQ(transcript.text(), R"(
ISystemPowerController_1.isConfigurationBypassed()
3 ZYR.TI.CriSetRadioChannelNearEnd: for channel 0 with radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H
3 ZYR.TI.CriSetRadioChannelNearEnd: txFrequency_kHz: 18000000, rxFrequency_kHz: 19010000, ffConfigType: Xpic, xpicEnable: Enable_A, mimoEnable: Disable, ppsSlave: 1
1 ZYR.TI.CriSetRadioChannelNearEnd: ChannelId out of bounds: 0
1 ZYR.TI.CriSetRadioChannelNearEnd: Recovery cannot solve this failure, return
)");
}

TEST_F(NearEndDriverTest, Channel0InTheResetCaseSucceedsOnChannel1)
{
    Command reset;
    reset.RadioChannelID = RadioChannel(0);
    reset.xpicParameterPresent = true;
    reset.mimoParameterPresent = true;
    EXPECT_EQ(run(reset), kSuccess);
    EXPECT_EQ(calls(), R"(
ISystemPowerController_1.isConfigurationBypassed()
ICcdpController_1.isStarted()
IMimoController_1.isStarted()
group 5 for channel 1
)");
}

TEST_F(NearEndDriverTest, Channel0OfABypassedNodeRunsTheClosingPhasesOfChannel1)
{
    node.channel1.systemPowerController.onIsConfigurationBypassed = true;
    EXPECT_EQ(run(command(0)), kSuccess);
    EXPECT_EQ(transcript.text(), R"(
ISystemPowerController_1.isConfigurationBypassed()
group 5 for channel 1
)");
}

TEST_F(NearEndDriverTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    CriSetRadioChannelNearEndImpl fresh;
    EXPECT_EQ(outcome(fresh.execute(command(1))), kOutOfBounds);
    EXPECT_EQ(outcome(fresh.execute(command(2))), kOutOfBounds);
    EXPECT_EQ(missingIn([&] { fresh.execute(command(0)); }), "ISystemPowerController of radio channel 1");
    EXPECT_EQ(transcript.text(), "\n");
}

// --- execute: bypass and phase group 5

TEST_F(NearEndDriverTest, BypassedChannelRunsTheClosingPhasesAlone)
{
    node.channel2.systemPowerController.onIsConfigurationBypassed = true;
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(transcript.text(), R"(
ISystemPowerController_2.isConfigurationBypassed()
group 5 for channel 2
)");
}

TEST_F(NearEndDriverTest, FailureOfTheClosingPhasesIsReportedForABypassedChannel)
{
    node.channel1.systemPowerController.onIsConfigurationBypassed = true;
    resultOfPhaseGroup5 = 0x8001;
    EXPECT_EQ(run(command()), failedWith("At least one of the phases failed (32769)"));
    EXPECT_EQ(calls(), R"(
ISystemPowerController_1.isConfigurationBypassed()
group 5 for channel 1
)");
    EXPECT_EQ(logs(), R"(
1: At least one of the phases failed (32769)
)");
}

TEST_F(NearEndDriverTest, FailureOfTheClosingPhasesFailsAGoodConfigurationWithoutRetry)
{
    resultOfPhaseGroup5 = 4294967295U;
    EXPECT_EQ(run(command()), failedWith("At least one of the phases failed (4294967295)"));
    EXPECT_EQ(count("group 5 for channel 1"), 1U);
    EXPECT_EQ(count("muteAcm"), 1U);
    EXPECT_EQ(linesWith({"phases failed (4294967295)"}), R"(
1 ZYR.TI.CriSetRadioChannelNearEnd: At least one of the phases failed (4294967295)
)");
}

TEST_F(NearEndDriverTest, SmallestFailureOfTheClosingPhases)
{
    resultOfPhaseGroup5 = 0x8000;
    EXPECT_EQ(run(command()), failedWith("At least one of the phases failed (32768)"));
}

TEST_F(NearEndDriverTest, GreatestSuccessOfTheClosingPhasesComesOutAsPlainSuccess)
{
    resultOfPhaseGroup5 = 0x7FFF;
    EXPECT_EQ(run(command()), kSuccess);
}

TEST_F(NearEndDriverTest, NoClosingPhasesBehindAFailedConfiguration)
{
    node.channel1.acmHandler.onSetMinMaxModulationAndCode = 0x8000;
    run(command());
    EXPECT_EQ(count("group 5"), 0U);
}

// --- execute: the passes

TEST_F(NearEndDriverTest, FailureThatNoRecoveryHealsEndsTheCommandAtOnce)
{
    node.channel1.frequencyController.onSetTxFrequency = 0x8000;
    EXPECT_EQ(run(command()), failedWith("IFrequencyController->setTxFrequency failed (EFCResult = 32768)"));
    EXPECT_EQ(linesWith({"muteAcm", "startDspRecovery", "1 ZYR", "2 ZYR", "group 5"}), R"(
IAcmHandler_1.muteAcm()
1 ZYR.TI.CriSetRadioChannelNearEnd: IFrequencyController->setTxFrequency failed (EFCResult = 32768)
1 ZYR.TI.CriSetRadioChannelNearEnd: Recovery cannot solve this failure, return
)");
}

TEST_F(NearEndDriverTest, ThreePassesThatAllFailAndTheTextOfTheThird)
{
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8001, 0x8002, 0x8003, eACMH_S_OK});
    EXPECT_EQ(run(command()), failedWith("IAcmHandler->muteAcm() failed (EACMHResult = 32771)"));
    EXPECT_EQ(linesWith({"for channel", "startDspRecovery", "muteAcm", "ailed", "group 5"}), R"(
3 ZYR.TI.CriSetRadioChannelNearEnd: for channel 1 with radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H
IAcmHandler_1.muteAcm()
2 ZYR.TI.CriSetRadioChannelNearEnd: IAcmHandler->muteAcm() failed (EACMHResult = 32769)
3 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed, retry with DSP recovery
3 ZYR.TI.CriSetRadioChannelNearEnd: for channel 1 with radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H
RecoveryController.startDspRecovery(2)
IAcmHandler_1.muteAcm()
2 ZYR.TI.CriSetRadioChannelNearEnd: IAcmHandler->muteAcm() failed (EACMHResult = 32770)
3 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed, retry with DSP recovery
3 ZYR.TI.CriSetRadioChannelNearEnd: for channel 1 with radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H
RecoveryController.startDspRecovery(2)
IAcmHandler_1.muteAcm()
2 ZYR.TI.CriSetRadioChannelNearEnd: IAcmHandler->muteAcm() failed (EACMHResult = 32771)
2 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed 3 times, restart needed
)");
}

TEST_F(NearEndDriverTest, SecondPassHeals)
{
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"startDspRecovery", "muteAcm", "ailed", "enableAcm", "group 5"}), R"(
IAcmHandler_1.muteAcm()
2 ZYR.TI.CriSetRadioChannelNearEnd: IAcmHandler->muteAcm() failed (EACMHResult = 32768)
3 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed, retry with DSP recovery
RecoveryController.startDspRecovery(2)
IAcmHandler_1.muteAcm()
IAcmHandler_1.enableAcm(true)
group 5 for channel 1
)");
}

TEST_F(NearEndDriverTest, ThirdPassHeals)
{
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, 0x8000, eACMH_S_OK});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count(".muteAcm()"), 3U);
    EXPECT_EQ(count("restart needed"), 0U);
    EXPECT_EQ(count("group 5 for channel 1"), 1U);
}

// Writes "<function>: <front of the text>" of the command's records.
class FunctionSink : public zyr_platform::TraceSink
{
  public:
    explicit FunctionSink(zyr_test::Transcript& functions) : m_functions(functions) {}

    void write(const zyr_platform::TraceRecord& record) override
    {
        if (record.channel == "ZYR.TI.CriSetRadioChannelNearEnd") {
            m_functions.add(std::string(record.header.function) + ": " +
                            std::string(record.text.substr(0, 16)));
        }
    }

  private:
    zyr_test::Transcript& m_functions;
};

// A step with a name of its own stands under it, any other under the function that it is a step of.
TEST_F(NearEndDriverTest, RecordsNameTheFunctionThatTheirStepBelongsTo)
{
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
    resultOfPhaseGroup5 = 0x8000;
    Command command = NearEndTest::command();
    command.rauMultiTrxConfig.ifSwitchMode.reset();
    showAllLevels();
    zyr_test::Transcript functions;
    const zyr_platform::Registration sink =
        zyr_platform::TraceService::get().addSink(std::make_shared<FunctionSink>(functions));
    EXPECT_EQ(run(command), failedWith("At least one of the phases failed (32768)"));
    EXPECT_EQ(functions.text(), R"(
execute: msg:RadioChannel
logCall: for channel 1 wi
logCall: txFrequency_kHz:
turnOffTransmitter: Initiating Tx OF
turnOffTransmitter: Start waiting fo
turnOffTransmitter: Done waiting for
checkFfAndCopyDcFileIfNeeded: CH:1frameId=4711
checkFfAndCopyDcFileIfNeeded: LH:0 getConfigTy
checkFfAndCopyDcFileIfNeeded: getRequiredFFCon
execute: IAcmHandler->mut
execute: Configuration fa
logCall: for channel 1 wi
logCall: txFrequency_kHz:
turnOffTransmitter: Initiating Tx OF
turnOffTransmitter: Start waiting fo
turnOffTransmitter: Done waiting for
checkFfAndCopyDcFileIfNeeded: CH:1frameId=4711
checkFfAndCopyDcFileIfNeeded: LH:0 getConfigTy
checkFfAndCopyDcFileIfNeeded: getRequiredFFCon
recoverDspIfNeeded: DSP recovery tri
configure: Configure PPS ro
configure: Going to call up
updateFrequencies: Going to call m_
configureMultiTrx: RAU has nothing\x20
restoreTransmitter: Return transmitt
execute: At least one of\x20
)");
}

TEST_F(NearEndDriverTest, BypassIsAskedOnceAndNotBetweenPasses)
{
    node.channel1.systemPowerController.onIsConfigurationBypassed.inTurn({false, true});
    node.channel1.acmHandler.onMuteAcm = 0x8000;
    run(command());
    EXPECT_EQ(count("isConfigurationBypassed()"), 1U);
    EXPECT_EQ(count(".muteAcm()"), 3U);
}

TEST_F(NearEndDriverTest, RequestForARecoveryOutlivesAPassThatMakesNone)
{
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
    node.channel1.frequencyController.onSetTxFrequency.inTurn({0x8005, eFC_S_OK});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"startDspRecovery", ".muteAcm", "setTxFrequency", "ailed"}), R"(
IAcmHandler_1.muteAcm()
2 ZYR.TI.CriSetRadioChannelNearEnd: IAcmHandler->muteAcm() failed (EACMHResult = 32768)
3 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed, retry with DSP recovery
RecoveryController.startDspRecovery(2)
IAcmHandler_1.muteAcm()
IFrequencyController_1.setTxFrequency(18000000, 1)
2 ZYR.TI.CriSetRadioChannelNearEnd: IFrequencyController->setTxFrequency failed (EFCResult = 32773)
3 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed, retry with DSP recovery
RecoveryController.startDspRecovery(2)
IAcmHandler_1.muteAcm()
IFrequencyController_1.setTxFrequency(18000000, 1)
)");
}

TEST_F(NearEndDriverTest, NothingOfARecoveryReachesTheNextCommand)
{
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
    ASSERT_EQ(run(command()), kSuccess);
    transcript.clear();
    node.channel1.frequencyController.onSetTxFrequency = 0x8000;
    EXPECT_EQ(run(command()), failedWith("IFrequencyController->setTxFrequency failed (EFCResult = 32768)"));
    EXPECT_EQ(count("startDspRecovery"), 0U);
    EXPECT_EQ(count(".muteAcm()"), 1U);
}

TEST_F(NearEndDriverTest, FailureThatNobodyHealsLeavesEverythingAsItIs)
{
    node.channel1.rssiHandler.onSetRssiThreshold = 0x8000;
    run(command());
    EXPECT_EQ(linesWith({"overrideTxPowerState", "Acm()", "enableAcm", "setRadioFrameId", "restoreAcm"}), R"(
ISystemPowerController_1.overrideTxPowerState(0)
IAcmHandler_1.muteAcm()
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
)");
}

// --- the print of the command

TEST_F(NearEndDriverTest, CommandPrintsEachFieldUnderItsLabel)
{
    Command odd;
    odd.RadioChannelID = RadioChannel(4294967295U);
    odd.radioFrameId = 4294967294U;
    odd.minModulation = ModulationAndCoding::HALF_BPSK_STRONG;
    odd.maxModulation = static_cast<ModulationAndCoding>(7);
    odd.referenceSec = static_cast<ReferenceSec>(10);
    odd.txFrequency_kHz = 4294967293U;
    odd.rxFrequency_kHz = 1;
    odd.xpicParameterPresent = true;
    odd.xpicEnable = "one, two: three";
    odd.mimoEnable = "Enable_Z";
    odd.splitMode = true;
    odd.iduMacAddress = {{0x00, 0x0A, 0xFF, 0x01, 0x00, 0x10}};
    odd.oduMacAddress = {{0xFE, 0xDC, 0xBA, 0x98, 0x76, 0x54}};
    odd.FFConfigType = "XpicTwoBoards";
    odd.ppsOutputMode = static_cast<PpsOutputMode>(3);
    odd.rauMultiTrxConfig.ifSwitchMode = 4294967292U;
    EXPECT_EQ(odd.toString(),
              "RadioChannelID: 4294967295, radioFrameId: 4294967294, minModulation: HALF_BPSK_STRONG, "
              "maxModulation: UNDEFINED, referenceSec: UNDEFINED, txFrequency_kHz: 4294967293, "
              "rxFrequency_kHz: 1, xpicParameterPresent: 1, xpicEnable: one, two: three, "
              "mimoParameterPresent: 0, mimoEnable: Enable_Z, ffConfigTypePresent: 0, "
              "FFConfigType: XpicTwoBoards, splitMode: 1, iduMacAddress: 0:a:ff:1:0:10, "
              "oduMacAddress: fe:dc:ba:98:76:54, ppsSlave: 0, ppsOutputMode:Unknown, "
              "rauMultiTrxConfig.ifSwitchMode: 4294967292\n");
}

TEST_F(NearEndDriverTest, CommandOfDefaultsPrintsNoIfSwitchMode)
{
    EXPECT_EQ(Command().toString(),
              "RadioChannelID: 1, radioFrameId: 0, minModulation: UNDEFINED, maxModulation: UNDEFINED, "
              "referenceSec: 2, txFrequency_kHz: 0, rxFrequency_kHz: 0, xpicParameterPresent: 0, "
              "xpicEnable: , mimoParameterPresent: 0, mimoEnable: , ffConfigTypePresent: 0, FFConfigType: , "
              "splitMode: 0, iduMacAddress: 0:0:0:0:0:0, oduMacAddress: 0:0:0:0:0:0, ppsSlave: 0, "
              "ppsOutputMode:Off\n");
}

TEST_F(NearEndDriverTest, IfSwitchModeOf0IsPrinted)
{
    Command command;
    command.rauMultiTrxConfig.ifSwitchMode = 0U;
    EXPECT_TRUE(command.toString().ends_with(", ppsOutputMode:Off, rauMultiTrxConfig.ifSwitchMode: 0\n"))
        << command.toString();
}

TEST_F(NearEndDriverTest, EachFlagStandsUnderItsOwnLabel)
{
    const auto withFlag = [](bool Command::*flag) {
        Command command;
        command.*flag = true;
        return command.toString();
    };
    EXPECT_NE(withFlag(&Command::xpicParameterPresent).find("xpicParameterPresent: 1, "), std::string::npos);
    EXPECT_NE(withFlag(&Command::mimoParameterPresent).find("mimoParameterPresent: 1, "), std::string::npos);
    EXPECT_NE(withFlag(&Command::ffConfigTypePresent).find("ffConfigTypePresent: 1, "), std::string::npos);
    EXPECT_NE(withFlag(&Command::splitMode).find("splitMode: 1, "), std::string::npos);
    EXPECT_NE(withFlag(&Command::ppsSlave).find("ppsSlave: 1, "), std::string::npos);
}

TEST_F(NearEndDriverTest, ReferenceClassesAndOutputModesPrintByName)
{
    const std::vector<std::string> classes = {"2",   "4L",  "4H",  "5B", "6B",       "5LB",
                                              "5HB", "6LB", "6HB", "7B", "UNDEFINED"};
    for (std::uint32_t number = 0; number < classes.size(); ++number) {
        Command command;
        command.referenceSec = static_cast<ReferenceSec>(number);
        EXPECT_NE(command.toString().find(", referenceSec: " + classes[number] + ", txFrequency_kHz"),
                  std::string::npos)
            << number;
    }
    const std::vector<std::string> modes = {"Off", "On", "Auto", "Unknown"};
    for (std::uint32_t number = 0; number < modes.size(); ++number) {
        Command command;
        command.ppsOutputMode = static_cast<PpsOutputMode>(number);
        EXPECT_TRUE(command.toString().ends_with(", ppsOutputMode:" + modes[number] + "\n")) << number;
    }
}

// --- the dispatcher

TEST_F(NearEndDriverTest, FrameShowsTheRequestByThePrintOfTheCommand)
{
    enrol<CriSetRadioChannelNearEndImpl>();
    setTraceLevel("ZYR.COMM", 5);
    node.channel2.systemPowerController.onIsConfigurationBypassed = true;
    tell(criSetRadioChannelNearEnd(command(2)));
    EXPECT_EQ(transcript.text(),
              R"(
5 ZYR.COMM: CRI.SetRadioChannelNearEnd Request: RadioChannelID: 2, radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H, txFrequency_kHz: 18000000, rxFrequency_kHz: 19010000, xpicParameterPresent: 1, xpicEnable: Enable_A, mimoParameterPresent: 1, mimoEnable: Disable, ffConfigTypePresent: 1, FFConfigType: Xpic, splitMode: 0, iduMacAddress: 0:0:0:0:0:0, oduMacAddress: 0:0:0:0:0:0, ppsSlave: 1, ppsOutputMode:Auto, rauMultiTrxConfig.ifSwitchMode: 3\n
ISystemPowerController_2.isConfigurationBypassed()
group 5 for channel 2
5 ZYR.COMM: CRI.SetRadioChannelNearEnd Response: StandardResponse Sent\n\n----------------------------------------------------\n
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(NearEndDriverTest, FrameNamesTheCommandAtLevel6)
{
    enrol<CriSetRadioChannelNearEndImpl>();
    setTraceLevel("ZYR.ZyrTopApi", 6);
    node.channel1.systemPowerController.onIsConfigurationBypassed = true;
    criSetRadioChannelNearEnd(command());
    EXPECT_EQ(linesWith({"ZYR.ZyrTopApi"}), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriSetRadioChannelNearEnd::Command
6 ZYR.ZyrTopApi: Return StandardResponse
)");
}

TEST_F(NearEndDriverTest, NotGated)
{
    enrol<CriSetRadioChannelNearEndImpl>();
    openTestGate(false);
    EXPECT_EQ(outcome(criSetRadioChannelNearEnd(command())), kSuccess);
    EXPECT_EQ(count("group 5 for channel 1"), 1U);
}

TEST_F(NearEndDriverTest, MutexIsFreeBehindACollaboratorThatThrows)
{
    enrol<CriSetRadioChannelNearEndImpl>();
    node.channel1.acmHandler.onMuteAcm.doInstead([]() -> EACMHResult { throw std::runtime_error("bus"); });
    EXPECT_THROW(criSetRadioChannelNearEnd(command()), std::runtime_error);
    EXPECT_EQ(outcome(criSetRadioChannelNearEnd(command(2))), kSuccess);
}

} // namespace
} // namespace zyr_top_api
