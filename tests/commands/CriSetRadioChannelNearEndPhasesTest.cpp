// One pass of "CRI.SetRadioChannelNearEnd": the order of its phases, and how each of them fails.

#include "CriSetRadioChannelNearEndFixture.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace zyr_test
{

// Names the parameter in the output of a failed test.
void PrintTo(const FailurePointFacts& facts, std::ostream* stream)
{
    *stream << facts.name;
}

} // namespace zyr_test

namespace zyr_top_api
{
namespace
{

using zyr_test::failedWith;
using zyr_test::FailurePoint;
using zyr_test::FailurePointFacts;
using zyr_test::kSuccess;
using NearEndPhasesTest = zyr_test::NearEndTest;

// --- the whole of a good run

TEST_F(NearEndPhasesTest, GoodRunWithAllCollaboratorsAtAllLevels)
{
    enrol<CriSetRadioChannelNearEndImpl>();
    setTraceLevel("ZYR.COMM", 7);
    setTraceLevel("ZYR.ZyrTopApi", 7);
    showAllLevels();
    node.channel1.dspApi.controlApi.onGetRequiredRecovery = {eTI_S_OK, Recover::DspWithoutConfig, true};
    node.channel1.dspApi.controlApi.onCheckDspReconfiguration = {eTI_S_OK, true};
    node.channel1.outputPowerController.onGetTxStatus.inTurn(
        {ETxPowerActualStatus::On, ETxPowerActualStatus::Standby, ETxPowerActualStatus::Off});
    tell(criSetRadioChannelNearEnd(command()));
    EXPECT_EQ(transcript.text(),
              R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriSetRadioChannelNearEnd::Command
5 ZYR.COMM: CRI.SetRadioChannelNearEnd Request: RadioChannelID: 1, radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H, txFrequency_kHz: 18000000, rxFrequency_kHz: 19010000, xpicParameterPresent: 1, xpicEnable: Enable_A, mimoParameterPresent: 1, mimoEnable: Disable, ffConfigTypePresent: 1, FFConfigType: Xpic, splitMode: 0, iduMacAddress: 0:0:0:0:0:0, oduMacAddress: 0:0:0:0:0:0, ppsSlave: 1, ppsOutputMode:Auto, rauMultiTrxConfig.ifSwitchMode: 3\n
6 ZYR.TI.CriSetRadioChannelNearEnd: msg:RadioChannelID: 1, radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H, txFrequency_kHz: 18000000, rxFrequency_kHz: 19010000, xpicParameterPresent: 1, xpicEnable: Enable_A, mimoParameterPresent: 1, mimoEnable: Disable, ffConfigTypePresent: 1, FFConfigType: Xpic, splitMode: 0, iduMacAddress: 0:0:0:0:0:0, oduMacAddress: 0:0:0:0:0:0, ppsSlave: 1, ppsOutputMode:Auto, rauMultiTrxConfig.ifSwitchMode: 3\n
ISystemPowerController_1.isConfigurationBypassed()
3 ZYR.TI.CriSetRadioChannelNearEnd: for channel 1 with radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H
3 ZYR.TI.CriSetRadioChannelNearEnd: txFrequency_kHz: 18000000, rxFrequency_kHz: 19010000, ffConfigType: Xpic, xpicEnable: Enable_A, mimoEnable: Disable, ppsSlave: 1
IRadio_1.isAvailable()
IRadioCapability_1.getFrequencyCapability()
IDspControlApi_1.isCarrierAggregationActive()
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Initiating Tx OFF
ISystemPowerController_1.overrideTxPowerState(0)
4 ZYR.TI.CriSetRadioChannelNearEnd: Start waiting for TX off
IOutputPowerController_1.getTxStatus()
sleep 100
IOutputPowerController_1.getTxStatus()
sleep 100
IOutputPowerController_1.getTxStatus()
4 ZYR.TI.CriSetRadioChannelNearEnd: Done waiting for TX off
IDspControlApi_1.getRequiredRecovery(3)
ICapabilityHandler_1.isLonghaul()
IHardwareConfigurationHandler.getConfigType(1, 4711)
7 ZYR.TI.CriSetRadioChannelNearEnd: CH:1frameId=4711 aggregation type: Xpic
7 ZYR.TI.CriSetRadioChannelNearEnd: LH:0 getConfigType returns: Xpic
7 ZYR.TI.CriSetRadioChannelNearEnd: getRequiredFFConfigType returns: Xpic
IDspControlApi_1.checkDspReconfiguration(3)
4 ZYR.TI.CriSetRadioChannelNearEnd: DSP need to be reconfigured since frame format type changed to Xpic for FFID 4711
4 ZYR.TI.CriSetRadioChannelNearEnd: Dsp Recovery: 1
4 ZYR.TI.CriSetRadioChannelNearEnd: DSP recovery triggered! Mode: DspWithoutConfig (due to carrier aggregation)
RecoveryController.startDspRecovery(1)
IAcmHandler_1.muteAcm()
IHardwareConfigurationHandler.isXpicCapable(4711)
ICcdpController_1.start(1)
IHardwareConfigurationHandler.isMimoCapable(4711)
IMimoController_1.setLinkType(0)
IAcmHandler_1.setMinMaxModulationAndCode(31, 81)
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
IHardwareConfigurationHandler.isChannelInUse(2)
5 ZYR.TI.CriSetRadioChannelNearEnd: Configure PPS role as SLAVE and output mode Auto ch[1]
IPpsController1.configureRole(true, 2)
IAcmHandler_1.getPhyMode(31)
IRssiHandler_1.calculateRssiThreshold(7)
IRssiHandler_1.setRssiThreshold(-620)
ISystemPowerController_1.setReferenceSec(2)
ISystemPowerController_1.setTemporaryPmaxCapability()
7 ZYR.TI.CriSetRadioChannelNearEnd: Going to call updateFrequencies
IRadio_1.isAvailable()
7 ZYR.TI.CriSetRadioChannelNearEnd: Going to call m_frequencyController[channelIndex]->setTxFrequency
IFrequencyController_1.setTxFrequency(18000000, 1)
ITxIQImbalanceHandler_1.OnTxFrequencyChanged(18000000)
ISystemPowerController_1.onTxFrequencyChanged(18000000)
IRadioCapability_1.getFrequencyCapability()
IFrequencyController_1.setRxFrequency(19010000, 1)
IRauHandler_1.setTxIfSwitch2T2R(3, 0)
IDspControlApi_1.isCarrierAggregationActive()
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Return transmitter of CH1 to requested state
ISystemPowerController_1.overrideTxPowerState(1)
IAcmHandler_1.enableAcm(true)
group 5 for channel 1
6 ZYR.ZyrTopApi: Return StandardResponse
5 ZYR.COMM: CRI.SetRadioChannelNearEnd Response: StandardResponse Sent\n\n----------------------------------------------------\n
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

// --- each failure: what ran before it, and nothing behind

constexpr std::string_view kCallsOfAPass = R"(
ISystemPowerController_1.isConfigurationBypassed()
IRadio_1.isAvailable()
IRadioCapability_1.getFrequencyCapability()
IDspControlApi_1.isCarrierAggregationActive()
IRadio_1.isAvailable()
ISystemPowerController_1.overrideTxPowerState(0)
IOutputPowerController_1.getTxStatus()
IDspControlApi_1.getRequiredRecovery(3)
ICapabilityHandler_1.isLonghaul()
IHardwareConfigurationHandler.getConfigType(1, 4711)
IDspControlApi_1.checkDspReconfiguration(3)
RecoveryController.startDspRecovery(1)
IAcmHandler_1.muteAcm()
IHardwareConfigurationHandler.isXpicCapable(4711)
ICcdpController_1.start(1)
IHardwareConfigurationHandler.isMimoCapable(4711)
IMimoController_1.setLinkType(0)
IAcmHandler_1.setMinMaxModulationAndCode(31, 81)
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
IHardwareConfigurationHandler.isChannelInUse(2)
IPpsController1.configureRole(true, 2)
IAcmHandler_1.getPhyMode(31)
IRssiHandler_1.calculateRssiThreshold(7)
IRssiHandler_1.setRssiThreshold(-620)
ISystemPowerController_1.setReferenceSec(2)
ISystemPowerController_1.setTemporaryPmaxCapability()
IRadio_1.isAvailable()
IFrequencyController_1.setTxFrequency(18000000, 1)
ITxIQImbalanceHandler_1.OnTxFrequencyChanged(18000000)
ISystemPowerController_1.onTxFrequencyChanged(18000000)
IRadioCapability_1.getFrequencyCapability()
IFrequencyController_1.setRxFrequency(19010000, 1)
IRauHandler_1.setTxIfSwitch2T2R(3, 0)
IDspControlApi_1.isCarrierAggregationActive()
IRadio_1.isAvailable()
ISystemPowerController_1.overrideTxPowerState(1)
IAcmHandler_1.enableAcm(true)
group 5 for channel 1
)";

std::string callsUpTo(std::string_view call)
{
    const std::size_t place = kCallsOfAPass.find("\n" + std::string(call) + "\n");
    return std::string(kCallsOfAPass.substr(0, place == std::string_view::npos ? 0 : place)) + "\n" +
           std::string(call) + "\n";
}

class NearEndPhaseFailureTest : public zyr_test::NearEndFailureTest,
                                public ::testing::WithParamInterface<FailurePointFacts>
{
  protected:
    // The DSP wants a recovery in the first pass.
    NearEndPhaseFailureTest() { neededRecovery = Recover::DspWithoutConfig; }

    static std::string failedOutcome() { return failedWith(GetParam().text); }
};

TEST_F(NearEndPhaseFailureTest, WithoutAFailureAPassMakesAllCalls)
{
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(calls(), kCallsOfAPass);
}

TEST_P(NearEndPhaseFailureTest, EndsThePassBehindTheCallThatFailed)
{
    failIn({1, 2, 3}, GetParam().point);
    EXPECT_EQ(run(command()), failedOutcome());
    const std::string expected = callsUpTo(GetParam().call);
    EXPECT_EQ(calls().substr(0, expected.size()), expected);
    EXPECT_EQ(pass, GetParam().isHealable ? 3U : 1U);
    if (!GetParam().isHealable) {
        EXPECT_EQ(calls(), expected);
    }
}

TEST_P(NearEndPhaseFailureTest, NextPassRunsWholeAndNothingOfTheFailedPassGoesOn)
{
    failIn({1}, GetParam().point);
    const std::string result = run(command());
    if (!GetParam().isHealable) {
        EXPECT_EQ(result, failedOutcome());
        return;
    }
    EXPECT_EQ(result, kSuccess);
    EXPECT_EQ(pass, 2U);
    // The second pass is the first one again, with the full recovery and so with the frame update mode.
    std::string second(kCallsOfAPass.substr(kCallsOfAPass.find("IRadio_1")));
    second.replace(second.find("startDspRecovery(1)"), 19, "startDspRecovery(2)");
    second.insert(second.find("IHardwareConfigurationHandler.setRadioFrameId"),
                  "IHardwareConfigurationHandler.getFrameUpdateMode()\n"
                  "IHardwareConfigurationHandler.setFrameUpdateMode(1)\n");
    second.insert(second.find("IPpsController1"), "IHardwareConfigurationHandler.setFrameUpdateMode(0)\n");
    EXPECT_EQ(calls(), callsUpTo(GetParam().call) + second);
}

TEST_P(NearEndPhaseFailureTest, AsksForARecoveryOrNot)
{
    failIn({1}, GetParam().point);
    run(command());
    // Both recoveries are seen where there was one to ask for: that of the DSP first, then that of the retry.
    const bool isBeforeRecovery = GetParam().point < FailurePoint::StartRecovery;
    EXPECT_EQ(linesWith({"startDspRecovery"}),
              GetParam().isHealable
                  ? "\nRecoveryController.startDspRecovery(1)\nRecoveryController.startDspRecovery(2)\n"
              : isBeforeRecovery ? "\n"
                                 : "\nRecoveryController.startDspRecovery(1)\n");
}

TEST_P(NearEndPhaseFailureTest, AsksForTheWeakerRecoveryWhenTheDspNeedsReconfiguration)
{
    neededRecovery = Recover::None;
    needsReconfiguration = true;
    failIn({1}, GetParam().point);
    run(command());
    EXPECT_EQ(linesWith({"startDspRecovery", "FrameUpdateMode"}),
              GetParam().isHealable ? "\nRecoveryController.startDspRecovery(1)\n" : "\n");
}

TEST_P(NearEndPhaseFailureTest, IsToldAtTheLevelOfItsWeight)
{
    failIn({1, 2, 3}, GetParam().point);
    run(command());
    const std::string text = GetParam().text;
    EXPECT_EQ(linesWith({"1 ZYR", "2 ZYR", "retry with"}),
              GetParam().isHealable
                  ? "\n2 ZYR.TI.CriSetRadioChannelNearEnd: " + text +
                        "\n3 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed, retry with DSP recovery"
                        "\n2 ZYR.TI.CriSetRadioChannelNearEnd: " +
                        text +
                        "\n3 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed, retry with DSP recovery"
                        "\n2 ZYR.TI.CriSetRadioChannelNearEnd: " +
                        text +
                        "\n2 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed 3 times, restart needed\n"
                  : "\n1 ZYR.TI.CriSetRadioChannelNearEnd: " + text +
                        "\n1 ZYR.TI.CriSetRadioChannelNearEnd: Recovery cannot solve this failure, return\n");
}

// Those that a pass for an XPIC frame on one board meets.
std::vector<FailurePointFacts> pointsOfAPass()
{
    std::vector<FailurePointFacts> points(zyr_test::kFailurePoints.begin(), zyr_test::kFailurePoints.end());
    std::erase_if(points, [](const FailurePointFacts& facts) {
        return facts.point == FailurePoint::CcdpStop || facts.point == FailurePoint::SecondFrameWrite;
    });
    return points;
}

INSTANTIATE_TEST_SUITE_P(Points, NearEndPhaseFailureTest, ::testing::ValuesIn(pointsOfAPass()),
                         [](const auto& suite) { return std::string(suite.param.name); });

// --- the summary of the command

TEST_F(NearEndPhasesTest, SummaryLeavesOutWhatTheCommandDoesntGive)
{
    Command bare = command(2);
    bare.ffConfigTypePresent = false;
    bare.xpicEnable = "";
    bare.mimoEnable = "";
    bare.ppsSlave = false;
    bare.minModulation = static_cast<ModulationAndCoding>(9);
    bare.referenceSec = static_cast<ReferenceSec>(99);
    run(bare);
    EXPECT_EQ(logs(), R"(
3: for channel 2 with radioFrameId: 4711, minModulation: UNDEFINED, maxModulation: 256QAM, referenceSec: UNDEFINED
3: txFrequency_kHz: 18000000, rxFrequency_kHz: 19010000, ppsSlave: 0
)");
}

TEST_F(NearEndPhasesTest, SummaryShowsLinkTypesByTheirTextsAndNotByTheirFlags)
{
    Command flagless = command();
    flagless.xpicParameterPresent = false;
    flagless.mimoParameterPresent = false;
    flagless.xpicEnable = "what was sent";
    run(flagless);
    EXPECT_EQ(linesWith({"txFrequency_kHz"}), R"(
3 ZYR.TI.CriSetRadioChannelNearEnd: txFrequency_kHz: 18000000, rxFrequency_kHz: 19010000, ffConfigType: Xpic, xpicEnable: what was sent, mimoEnable: Disable, ppsSlave: 1
)");
}

TEST_F(NearEndPhasesTest, SummaryShowsAnEmptyConfigurationTypeThatIsMarkedAsPresent)
{
    Command command = NearEndPhasesTest::command();
    command.FFConfigType = "";
    command.xpicEnable = "";
    run(command);
    EXPECT_EQ(linesWith({"txFrequency_kHz"}), R"(
3 ZYR.TI.CriSetRadioChannelNearEnd: txFrequency_kHz: 18000000, rxFrequency_kHz: 19010000, ffConfigType: , mimoEnable: Disable, ppsSlave: 1
)");
}

// --- the test of the input

TEST_F(NearEndPhasesTest, XpicAndMimoAtOnceAreRefusedThoughNeitherIsMarkedAsPresent)
{
    Command both = command();
    both.xpicParameterPresent = false;
    both.mimoParameterPresent = false;
    both.xpicEnable = "Enable_D";
    both.mimoEnable = "Enable_A";
    EXPECT_EQ(run(both), failedWith("Enabling XPIC and MIMO at the same time is not allowed!"));
    EXPECT_EQ(calls(), R"(
ISystemPowerController_1.isConfigurationBypassed()
)");
}

TEST_F(NearEndPhasesTest, UnknownLinkTypesCountAsDisabled)
{
    Command unknown = command();
    unknown.xpicEnable = "enable_a";
    unknown.mimoEnable = "Enable_E";
    EXPECT_EQ(run(unknown), kSuccess);
    EXPECT_EQ(linesWith({"start(", "setLinkType"}), R"(
ICcdpController_1.start(0)
IMimoController_1.setLinkType(0)
)");
}

TEST_F(NearEndPhasesTest, DuplexTypesFrom2AreRefused)
{
    for (const std::uint32_t type : {2U, 3U, 4294967295U}) {
        FrequencyCapability capability;
        capability.DuplexType = type;
        node.channel1.radioCapability.onGetFrequencyCapability = capability;
        EXPECT_EQ(run(command()), failedWith("syntax error, duplex type not valid")) << type;
    }
    EXPECT_EQ(count("overrideTxPowerState"), 0U);
}

TEST_F(NearEndPhasesTest, DuplexTypeIsntReadWithoutTheRadioUnit)
{
    FrequencyCapability capability;
    capability.DuplexType = 2;
    node.channel1.radioCapability.onGetFrequencyCapability = capability;
    node.channel1.radio.onIsAvailable = false;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("getFrequencyCapability"), 0U);
}

TEST_F(NearEndPhasesTest, LinkTypesAreTestedBeforeTheRadioUnitIsAsked)
{
    node.channel1.radio.onIsAvailable = false;
    Command both = command();
    both.mimoEnable = "Enable_B";
    EXPECT_EQ(run(both), failedWith("Enabling XPIC and MIMO at the same time is not allowed!"));
    EXPECT_EQ(count("isAvailable"), 0U);
}

// --- phases of a call or two

TEST_F(NearEndPhasesTest, FailuresOfReferenceClassPpsRoleAndMimoLinkTypeGoUnnoticed)
{
    node.channel1.systemPowerController.onSetReferenceSec = 0x8000;
    node.channel1.ppsController.onConfigureRole = 0x8000;
    node.channel1.mimoController.onSetLinkType = 0x8000;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"setReferenceSec", "configureRole", "setLinkType", "enableAcm", "for channel"}), R"(
3 ZYR.TI.CriSetRadioChannelNearEnd: for channel 1 with radioFrameId: 4711, minModulation: 4QAM, maxModulation: 256QAM, referenceSec: 4H
IMimoController_1.setLinkType(0)
IPpsController1.configureRole(true, 2)
ISystemPowerController_1.setReferenceSec(2)
IAcmHandler_1.enableAcm(true)
group 5 for channel 1
)");
}

TEST_F(NearEndPhasesTest, DefaultAnswersOfTheAcmHandlerFailLikeAnyOther)
{
    node.channel1.acmHandler.defaultsInForce = true;
    EXPECT_EQ(run(command()), failedWith("IAcmHandler->muteAcm() failed (EACMHResult = 32769)"));
    EXPECT_EQ(count("muteAcm()"), 3U + 3U); // three calls and the text of each
}

TEST_F(NearEndPhasesTest, GreatestSuccessOfEachCollaboratorGoesOn)
{
    auto& channel = node.channel1;
    channel.systemPowerController.onOverrideTxPowerState = 0x7FFF;
    channel.dspApi.controlApi.onGetRequiredRecovery = {0x7FFF, Recover::Dsp, false};
    channel.dspApi.controlApi.onCheckDspReconfiguration = 0x7FFF;
    node.recoveryController.onStartDspRecovery = 0x7FFF;
    channel.acmHandler.onMuteAcm = 0x7FFF;
    node.hardwareConfigurationHandler.onIsXpicCapable = {0x7FFF, true};
    channel.ccdpController.onStart = 0x7FFF;
    channel.acmHandler.onSetMinMaxModulationAndCode = 0x7FFF;
    node.hardwareConfigurationHandler.onSetRadioFrameId = 0x7FFF;
    channel.acmHandler.onGetPhyMode = 0x7FFF;
    channel.rssiHandler.onCalculateRssiThreshold = 0x7FFF;
    channel.rssiHandler.onSetRssiThreshold = 0x7FFF;
    channel.systemPowerController.onSetTemporaryPmaxCapability = 0x7FFF;
    channel.frequencyController.onSetTxFrequency = 0x7FFF;
    channel.txIqImbalanceHandler.onOnTxFrequencyChanged = 0x7FFF;
    channel.systemPowerController.onOnTxFrequencyChanged = 0x7FFF;
    channel.frequencyController.onSetRxFrequency = 0x7FFF;
    channel.rauHandler.onSetTxIfSwitch2T2R = 0x7FFF;
    channel.acmHandler.onEnableAcm = 0x7FFF;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("for channel 1 with"), 1U);
}

TEST_F(NearEndPhasesTest, MimoLinkTypeOfTheCommandReachesAFrameThatCanCarryIt)
{
    Command mimo = command();
    mimo.xpicEnable = "Disable";
    mimo.mimoEnable = "Enable_C";
    run(mimo);
    EXPECT_EQ(linesWith({"isMimoCapable", "setLinkType"}), R"(
IHardwareConfigurationHandler.isMimoCapable(4711)
IMimoController_1.setLinkType(3)
)");
}

TEST_F(NearEndPhasesTest, MimoLinkTypeThatIsntMarkedAsPresentIsDisable)
{
    Command mimo = command();
    mimo.xpicEnable = "Disable";
    mimo.mimoEnable = "Enable_C";
    mimo.mimoParameterPresent = false;
    run(mimo);
    EXPECT_EQ(linesWith({"setLinkType"}), R"(
IMimoController_1.setLinkType(0)
)");
}

TEST_F(NearEndPhasesTest, FrameThatCantCarryMimoLeavesTheMimoControllerAlone)
{
    node.hardwareConfigurationHandler.onIsMimoCapable = false;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"isMimoCapable", "IMimoController"}), R"(
IHardwareConfigurationHandler.isMimoCapable(4711)
)");
}

TEST_F(NearEndPhasesTest, ChannelWithoutAMimoControllerGoesOn)
{
    withdraw("IMimoController_1");
    ASSERT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"Mimo", "enableAcm"}), R"(
IHardwareConfigurationHandler.isMimoCapable(4711)
IAcmHandler_1.enableAcm(true)
)");
}

TEST_F(NearEndPhasesTest, PpsMasterOnChannel2)
{
    setTraceLevel(kChannel, 5);
    Command master = command(2);
    master.ppsSlave = false;
    master.ppsOutputMode = static_cast<PpsOutputMode>(7);
    run(master);
    EXPECT_EQ(linesWith({"PPS role", "configureRole"}), R"(
5 ZYR.TI.CriSetRadioChannelNearEnd: Configure PPS role as MASTER and output mode Unknown ch[2]
IPpsController2.configureRole(false, 7)
)");
}

TEST_F(NearEndPhasesTest, ChannelWithoutAPpsControllerGoesOnSilently)
{
    withdraw("IPpsController1");
    ASSERT_EQ(impl.initialize(2), 0);
    setTraceLevel(kChannel, 5);
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("PPS role"), 0U);
    EXPECT_EQ(count("configureRole"), 0U);
}

} // namespace
} // namespace zyr_top_api
