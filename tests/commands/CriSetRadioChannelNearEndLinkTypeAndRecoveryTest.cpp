// "CRI.SetRadioChannelNearEnd", the link type and the recovery of the DSP.

#include "CriSetRadioChannelNearEndFixture.h"

#include <gtest/gtest.h>

#include <string>

namespace zyr_top_api
{
namespace
{

using zyr_test::failedWith;
using zyr_test::kSuccess;

class NearEndLinkTest : public zyr_test::NearEndTest
{
  protected:
    // What the node sends while a channel is held in reset.
    static Command reset(std::uint32_t channel = 1)
    {
        Command command;
        command.RadioChannelID = RadioChannel(channel);
        command.xpicParameterPresent = true;
        command.xpicEnable = "Disable";
        command.mimoParameterPresent = true;
        command.mimoEnable = "Disable";
        return command;
    }

    static Command withType(const std::string& type)
    {
        Command command = NearEndTest::command();
        command.FFConfigType = type;
        return command;
    }

    zyr_test::DspControlApiDouble& dsp = node.channel1.dspApi.controlApi;
};

// --- the reset case

TEST_F(NearEndLinkTest, ResetStopsWhatIsStartedAndRunsTheClosingPhases)
{
    node.channel1.ccdpController.onIsStarted = true;
    node.channel1.mimoController.onIsStarted = true;
    EXPECT_EQ(run(reset()), kSuccess);
    EXPECT_EQ(transcript.text(), R"(
ISystemPowerController_1.isConfigurationBypassed()
3 ZYR.TI.CriSetRadioChannelNearEnd: for channel 1 with radioFrameId: 0, minModulation: UNDEFINED, maxModulation: UNDEFINED, referenceSec: 2
3 ZYR.TI.CriSetRadioChannelNearEnd: txFrequency_kHz: 0, rxFrequency_kHz: 0, xpicEnable: Disable, mimoEnable: Disable, ppsSlave: 0
ICcdpController_1.isStarted()
ICcdpController_1.stop()
IMimoController_1.isStarted()
IMimoController_1.stop()
group 5 for channel 1
)");
}

TEST_F(NearEndLinkTest, ResetStopsNothingThatIsntStarted)
{
    EXPECT_EQ(run(reset(2)), kSuccess);
    EXPECT_EQ(calls(), R"(
ISystemPowerController_2.isConfigurationBypassed()
ICcdpController_2.isStarted()
IMimoController_2.isStarted()
group 5 for channel 2
)");
}

TEST_F(NearEndLinkTest, ResetIgnoresStopsThatFail)
{
    node.channel1.ccdpController.onIsStarted = true;
    node.channel1.ccdpController.onStop = 0x8000;
    node.channel1.mimoController.onIsStarted = true;
    node.channel1.mimoController.onStop = 0x8000;
    EXPECT_EQ(run(reset()), kSuccess);
    EXPECT_EQ(calls(), R"(
ISystemPowerController_1.isConfigurationBypassed()
ICcdpController_1.isStarted()
ICcdpController_1.stop()
IMimoController_1.isStarted()
IMimoController_1.stop()
group 5 for channel 1
)");
}

TEST_F(NearEndLinkTest, ResetWithoutControllersCallsNothingAtAll)
{
    withdraw("ICcdpController_1");
    withdraw("IMimoController_1");
    ASSERT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(run(reset()), kSuccess);
    EXPECT_EQ(calls(), R"(
ISystemPowerController_1.isConfigurationBypassed()
group 5 for channel 1
)");
}

TEST_F(NearEndLinkTest, ResetReportsTheFailureOfTheClosingPhases)
{
    resultOfPhaseGroup5 = 0x8000;
    EXPECT_EQ(run(reset()), failedWith("At least one of the phases failed (32768)"));
}

TEST_F(NearEndLinkTest, ResetTakesUnknownLinkTypesForDisable)
{
    Command command = reset();
    command.xpicEnable = "";
    command.mimoEnable = "nonsense";
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(count("muteAcm"), 0U);
}

TEST_F(NearEndLinkTest, ResetLooksAtNothingElseInTheCommand)
{
    Command command = NearEndTest::command();
    command.radioFrameId = 0;
    command.txFrequency_kHz = 0;
    command.xpicEnable = "Disable";
    command.FFConfigType = "not a type";
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(count("muteAcm"), 0U);
    EXPECT_EQ(count("getRequiredRecovery"), 0U);
}

// All of them but one: the command takes the usual way.
TEST_F(NearEndLinkTest, EachConditionOfTheResetCaseCounts)
{
    const auto takesTheUsualWay = [this](const Command& command) {
        transcript.clear();
        EXPECT_EQ(run(command), kSuccess);
        return count(".muteAcm()") == 1 && count("isStarted") == 0 && count("enableAcm(true)") == 1;
    };
    Command frequency = reset();
    frequency.txFrequency_kHz = 1;
    EXPECT_TRUE(takesTheUsualWay(frequency));
    Command frame = reset();
    frame.radioFrameId = 1;
    EXPECT_TRUE(takesTheUsualWay(frame));
    Command xpic = reset();
    xpic.xpicEnable = "Enable_A";
    EXPECT_TRUE(takesTheUsualWay(xpic));
    Command mimo = reset();
    mimo.mimoEnable = "Enable_D";
    EXPECT_TRUE(takesTheUsualWay(mimo));
    Command noXpicFlag = reset();
    noXpicFlag.xpicParameterPresent = false;
    EXPECT_TRUE(takesTheUsualWay(noXpicFlag));
    Command noMimoFlag = reset();
    noMimoFlag.mimoParameterPresent = false;
    EXPECT_TRUE(takesTheUsualWay(noMimoFlag));
    EXPECT_FALSE(takesTheUsualWay(reset()));
}

// --- the link type of XPIC

TEST_F(NearEndLinkTest, CapableFrameIsStartedWithTheLinkTypeOfTheCommand)
{
    Command command = NearEndTest::command();
    for (const char* const type : {"Disable", "Enable_A", "Enable_B", "Enable_C", "Enable_D"}) {
        command.xpicEnable = type;
        EXPECT_EQ(run(command), kSuccess);
    }
    EXPECT_EQ(linesWith({"ICcdpController"}), R"(
ICcdpController_1.start(0)
ICcdpController_1.start(1)
ICcdpController_1.start(2)
ICcdpController_1.start(3)
ICcdpController_1.start(4)
)");
}

TEST_F(NearEndLinkTest, CapableFrameIsStartedWithDisableWhenTheLinkTypeIsntMarkedAsPresent)
{
    Command command = NearEndTest::command();
    command.xpicParameterPresent = false;
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(linesWith({"ICcdpController"}), R"(
ICcdpController_1.start(0)
)");
}

TEST_F(NearEndLinkTest, FrameThatCantIsStoppedWhateverTheCommandAsksFor)
{
    node.hardwareConfigurationHandler.onIsXpicCapable = {eHCH_S_OK, false};
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"ICcdpController"}), R"(
ICcdpController_1.stop()
)");
}

TEST_F(NearEndLinkTest, AnswerThatSaysNothingOfTheFrameMeansThatItCant)
{
    node.hardwareConfigurationHandler.onIsXpicCapable = eHCH_S_OK;
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(linesWith({"isXpicCapable", "ICcdpController"}), R"(
IHardwareConfigurationHandler.isXpicCapable(4711)
ICcdpController_2.stop()
)");
}

TEST_F(NearEndLinkTest, ChannelWithoutACcdpControllerAsksOnlyWhatTheFrameCan)
{
    withdraw("ICcdpController_1");
    ASSERT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"isXpicCapable", "ICcdpController"}), R"(
IHardwareConfigurationHandler.isXpicCapable(4711)
)");
}

TEST_F(NearEndLinkTest, QuestionThatFailsFailsWithoutACcdpControllerToo)
{
    withdraw("ICcdpController_1");
    ASSERT_EQ(impl.initialize(2), 0);
    node.hardwareConfigurationHandler.onIsXpicCapable = {0x8000, true};
    EXPECT_EQ(run(command()),
              failedWith("HardwareConfigurationHandler isXpicCapable failed(hchResultXpic = 32768)"));
    EXPECT_EQ(count("startDspRecovery(2)"), 2U);
}

TEST_F(NearEndLinkTest, FailedStartNamesTheLinkType)
{
    node.channel1.ccdpController.onStart = 0x8000;
    Command command = NearEndTest::command();
    for (const char* const type : {"Disable", "Enable_A", "Enable_B", "Enable_C", "Enable_D"}) {
        command.xpicEnable = type;
        EXPECT_EQ(run(command), failedWith(std::string("CCDP start failed(ECCDPCREsult = 32768) for link "
                                                       "type ") +
                                           type));
    }
    EXPECT_EQ(count("startDspRecovery(2)"), 10U);
}

TEST_F(NearEndLinkTest, FailedStopHasATextOfItsOwnAndAsksForARecovery)
{
    node.hardwareConfigurationHandler.onIsXpicCapable = {eHCH_S_OK, false};
    node.channel1.ccdpController.onStop.inTurn({4294967295U, eTI_S_OK});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"stop()", "ailed", "startDspRecovery"}), R"(
ICcdpController_1.stop()
2 ZYR.TI.CriSetRadioChannelNearEnd: CCDP stop failed(ECCDPCREsult = 4294967295)
3 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed, retry with DSP recovery
RecoveryController.startDspRecovery(2)
ICcdpController_1.stop()
)");
}

// --- which frame format types a command may name

TEST_F(NearEndLinkTest, TypesThatAreRefusedAreNamedAsTheyWereSent)
{
    for (const char* const type : {"Unknown", "Other", "LongHaulStandard", "LongHaulXpic",
                                   "LongHaulXpicTwoBoards", "", "xpic", "Std", "Xpic2", " Xpic", "what?"}) {
        transcript.clear();
        EXPECT_EQ(run(withType(type)),
                  failedWith(std::string("CRI.SetRadioChannelNearEnd invalid FF config type: ") + type));
        EXPECT_EQ(count("getRequiredRecovery"), 0U) << type;
        EXPECT_EQ(count("overrideTxPowerState(0)"), 1U) << type;
        EXPECT_EQ(count("muteAcm"), 0U) << type;
        EXPECT_EQ(count("Recovery cannot solve this failure, return"), 1U) << type;
    }
}

TEST_F(NearEndLinkTest, RefusedTypeThatIsntMarkedAsPresentDoesntMatter)
{
    Command command = withType("LongHaulXpic");
    command.ffConfigTypePresent = false;
    EXPECT_EQ(run(command), kSuccess);
}

// --- whether the DSP is recovered

TEST_F(NearEndLinkTest, WithoutATypeTheDspIsAskedNothingAndNotRecovered)
{
    dsp.onGetRequiredRecovery = {eTI_S_OK, Recover::Dsp, true};
    Command command = NearEndTest::command();
    command.ffConfigTypePresent = false;
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(linesWith({"getRequiredRecovery", "checkDspReconfiguration", "isLonghaul", "getConfigType",
                         "startDspRecovery"}),
              "\n");
}

TEST_F(NearEndLinkTest, WithoutATypeARetryRunsTheFullRecovery)
{
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
    dsp.onCheckDspReconfiguration = {eTI_S_OK, true};
    Command command = NearEndTest::command();
    command.ffConfigTypePresent = false;
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(linesWith({"getRequiredRecovery", "checkDspReconfiguration", "startDspRecovery"}), R"(
RecoveryController.startDspRecovery(2)
)");
}

TEST_F(NearEndLinkTest, DspThatNeedsARecoveryGetsItInTheFirstPass)
{
    setTraceLevel(kChannel, 4);
    dsp.onGetRequiredRecovery = {eTI_S_OK, Recover::Dsp, false};
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"ecovery"}), R"(
IDspControlApi_1.getRequiredRecovery(3)
4 ZYR.TI.CriSetRadioChannelNearEnd: DSP recovery triggered! Mode: Dsp
RecoveryController.startDspRecovery(2)
)");
}

TEST_F(NearEndLinkTest, RecoveryDueToCarrierAggregationIsTold)
{
    setTraceLevel(kChannel, 4);
    node.channel2.dspApi.controlApi.onGetRequiredRecovery = {eTI_S_OK, Recover::DspWithoutConfig, true};
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(linesWith({"ecovery"}), R"(
IDspControlApi_2.getRequiredRecovery(3)
4 ZYR.TI.CriSetRadioChannelNearEnd: DSP recovery triggered! Mode: DspWithoutConfig (due to carrier aggregation)
RecoveryController.startDspRecovery(1)
)");
}

TEST_F(NearEndLinkTest, RetryThatAsksForMoreItselfTellsTheCarrierAggregationToo)
{
    setTraceLevel(kChannel, 4);
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
    dsp.onGetRequiredRecovery.inTurn(
        {{eTI_S_OK, Recover::None, false}, {eTI_S_OK, Recover::DspWithoutConfig, true}});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"DspRecovery", "triggered"}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: DSP recovery triggered! Mode: Dsp (due to carrier aggregation)
RecoveryController.startDspRecovery(2)
)");
}

TEST_F(NearEndLinkTest, RetryTellsTheCarrierAggregationThoughTheDspNeedsNothing)
{
    setTraceLevel(kChannel, 4);
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
    dsp.onGetRequiredRecovery = {eTI_S_OK, Recover::None, true};
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"DspRecovery", "triggered"}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: DSP recovery triggered! Mode: Dsp (due to carrier aggregation)
RecoveryController.startDspRecovery(2)
)");
}

TEST_F(NearEndLinkTest, CarrierAggregationAloneTriggersNothing)
{
    dsp.onGetRequiredRecovery = {eTI_S_OK, Recover::None, true};
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("startDspRecovery"), 0U);
}

TEST_F(NearEndLinkTest, RecoveryWithoutANameIsTriggeredAllTheSame)
{
    setTraceLevel(kChannel, 4);
    dsp.onGetRequiredRecovery = {eTI_S_OK, static_cast<Recover>(3), false};
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"triggered", "startDspRecovery"}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: DSP recovery triggered! Mode: Undefined
RecoveryController.startDspRecovery(3)
)");
}

TEST_F(NearEndLinkTest, StrongerOfTheTwoRecoveriesRuns)
{
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
    dsp.onCheckDspReconfiguration = {eTI_S_OK, true}; // the retry asks for the weaker one
    dsp.onGetRequiredRecovery.inTurn({{eTI_S_OK, Recover::None, false}, {eTI_S_OK, Recover::Dsp, false}});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"startDspRecovery"}), R"(
RecoveryController.startDspRecovery(2)
)");
}

TEST_F(NearEndLinkTest, WeakerWishOfTheDspDoesntWeakenARetry)
{
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
    dsp.onGetRequiredRecovery = {eTI_S_OK, Recover::DspWithoutConfig, false};
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"startDspRecovery"}), R"(
RecoveryController.startDspRecovery(1)
RecoveryController.startDspRecovery(2)
)");
}

TEST_F(NearEndLinkTest, WithoutARecoveryControllerTheConfigurationGoesOnEvenOnARetry)
{
    withdraw("RecoveryController");
    ASSERT_EQ(impl.initialize(2), 0);
    transcript.clear();
    setTraceLevel(kChannel, 4);
    dsp.onGetRequiredRecovery = {eTI_S_OK, Recover::Dsp, true};
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("DSP recovery triggered"), 0U);
    EXPECT_EQ(count("startDspRecovery"), 0U);
    EXPECT_EQ(count(".muteAcm()"), 2U);
    EXPECT_EQ(count("setFrameUpdateMode(1)"), 1U);
    EXPECT_EQ(count("enableAcm(true)"), 1U);
}

TEST_F(NearEndLinkTest, RecoveryThatFailsEndsTheCommandBeforeAcmIsMuted)
{
    dsp.onGetRequiredRecovery = {eTI_S_OK, Recover::Dsp, false};
    node.recoveryController.onStartDspRecovery = 0x8000;
    EXPECT_EQ(run(command()), failedWith("CRI.SetRadioChannelNearEnd failed to reconfigure the DSP"));
    EXPECT_EQ(linesWith({"for channel", "muteAcm", "overrideTxPowerState"}), R"(
3 ZYR.TI.CriSetRadioChannelNearEnd: for channel 1 with radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H
ISystemPowerController_1.overrideTxPowerState(0)
)");
}

TEST_F(NearEndLinkTest, QuestionForTheRecoveryThatFailsEndsTheCommand)
{
    dsp.onGetRequiredRecovery = {0x8000, Recover::Dsp, false};
    EXPECT_EQ(run(command()), failedWith("CRI.SetRadioChannelNearEnd failed to check which kind of DSP "
                                         "Recovery is needed"));
    EXPECT_EQ(linesWith({"isLonghaul", "startDspRecovery", "muteAcm"}), "\n");
}

// --- what the DSP is told of the frame

TEST_F(NearEndLinkTest, FrameFormatIsTracedAtLevel7)
{
    showAllLevels();
    node.channel2.capabilityHandler.onIsLonghaul = true;
    Command command = NearEndTest::command(2);
    command.radioFrameId = 4294967295U;
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(linesWith({"isLonghaul", "getConfigType", "CH:", "getRequiredFF", "checkDsp"}), R"(
ICapabilityHandler_2.isLonghaul()
IHardwareConfigurationHandler.getConfigType(2, 4294967295)
7 ZYR.TI.CriSetRadioChannelNearEnd: CH:2frameId=4294967295 aggregation type: Xpic
7 ZYR.TI.CriSetRadioChannelNearEnd: LH:1 getConfigType returns: Xpic
7 ZYR.TI.CriSetRadioChannelNearEnd: getRequiredFFConfigType returns: LHXpic
IDspControlApi_2.checkDspReconfiguration(6)
)");
}

TEST_F(NearEndLinkTest, TypeThatDoesntFitTheFrameGoesToTheDspAsUnknownAndIsntRefused)
{
    showAllLevels();
    EXPECT_EQ(run(withType("Mimo")), kSuccess);
    EXPECT_EQ(linesWith({"getRequiredRecovery", "CH:", "getRequiredFF", "checkDsp"}), R"(
IDspControlApi_1.getRequiredRecovery(4)
7 ZYR.TI.CriSetRadioChannelNearEnd: CH:1frameId=4711 aggregation type: Mimo
7 ZYR.TI.CriSetRadioChannelNearEnd: getRequiredFFConfigType returns: Unknown
IDspControlApi_1.checkDspReconfiguration(0)
)");
}

TEST_F(NearEndLinkTest, FrameWhoseTypeCantBeReadIsOfNoType)
{
    showAllLevels();
    node.hardwareConfigurationHandler.onGetConfigType = 0x8000;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"LH:", "checkDsp"}), R"(
7 ZYR.TI.CriSetRadioChannelNearEnd: LH:0 getConfigType returns: Unknown
IDspControlApi_1.checkDspReconfiguration(0)
)");
}

TEST_F(NearEndLinkTest, DspThatNeedsReconfigurationIsToldOfButStartsNoRecoveryByItself)
{
    setTraceLevel(kChannel, 4);
    dsp.onCheckDspReconfiguration = {eTI_S_OK, true};
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"Dsp", "DSP"}), R"(
IDspControlApi_1.isCarrierAggregationActive()
IDspControlApi_1.getRequiredRecovery(3)
IDspControlApi_1.checkDspReconfiguration(3)
4 ZYR.TI.CriSetRadioChannelNearEnd: DSP need to be reconfigured since frame format type changed to Xpic for FFID 4711
4 ZYR.TI.CriSetRadioChannelNearEnd: Dsp Recovery: 1
IDspControlApi_1.isCarrierAggregationActive()
)");
}

TEST_F(NearEndLinkTest, DspThatNeedsNoReconfigurationIsntToldOf)
{
    showAllLevels();
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("DSP need to be reconfigured"), 0U);
    EXPECT_EQ(count("Dsp Recovery"), 0U);
}

TEST_F(NearEndLinkTest, NeedForReconfigurationIsForgottenWithItsPass)
{
    dsp.onCheckDspReconfiguration.inTurn({{eTI_S_OK, true}, {eTI_S_OK}});
    node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, 0x8000, eACMH_S_OK});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"startDspRecovery"}), R"(
RecoveryController.startDspRecovery(1)
RecoveryController.startDspRecovery(2)
)");
}

TEST_F(NearEndLinkTest, CheckThatFailsEndsTheCommandAndItsAnswerDoesntCount)
{
    setTraceLevel(kChannel, 4);
    dsp.onGetRequiredRecovery = {eTI_S_OK, Recover::Dsp, false};
    dsp.onCheckDspReconfiguration = {0x8000, true};
    EXPECT_EQ(run(command()),
              failedWith("CRI.SetRadioChannelNearEnd failed to check if the DSP needs to be reconfigured"));
    EXPECT_EQ(linesWith({"DSP need to", "startDspRecovery", "muteAcm"}), "\n");
}

TEST_F(NearEndLinkTest, DefaultOfTheCapabilityHandlerIsNoLongHaul)
{
    node.channel1.capabilityHandler.onIsLonghaul = true;
    node.channel1.capabilityHandler.defaultsInForce = true;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("checkDspReconfiguration(3)"), 1U);
}

TEST_F(NearEndLinkTest, CapabilityHandlerThatIsGoneEndsTheCommand)
{
    withdraw("ICapabilityHandler_1");
    ASSERT_EQ(impl.initialize(2), 0x8000); // keeps the collaborators of the first call, but for this one
    transcript.clear();
    EXPECT_EQ(run(command()), failedWith("CRI.SetRadioChannelNearEnd could not check if LongHaul, CapHandler "
                                         "NULL interface"));
    EXPECT_EQ(linesWith({"getRequiredRecovery", "getConfigType", "checkDsp", "muteAcm"}), R"(
IDspControlApi_1.getRequiredRecovery(3)
)");
}

TEST_F(NearEndLinkTest, CapabilityHandlerThatIsGoneDoesntMatterWithoutAType)
{
    withdraw("ICapabilityHandler_1");
    ASSERT_EQ(impl.initialize(2), 0x8000);
    Command command = NearEndTest::command();
    command.ffConfigTypePresent = false;
    EXPECT_EQ(run(command), kSuccess);
}

} // namespace
} // namespace zyr_top_api
