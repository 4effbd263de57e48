// "CRI.SetRadioChannelNearEnd" and what it writes: frame, threshold, frequencies, the radio unit's switch.

#include "CriSetRadioChannelNearEndFixture.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace zyr_top_api
{
namespace
{

using zyr_test::failedWith;
using zyr_test::kSuccess;

class NearEndFrameTest : public zyr_test::NearEndTest
{
  protected:
    NearEndFrameTest()
    {
        setTraceLevel(kChannel, 5);
        node.hardwareConfigurationHandler.onGetFrameUpdateMode = {eHCH_S_OK, 5U};
    }

    // A command for MRC over two boards, on a frame that can carry it.
    Command mrc2(std::uint32_t channel = 1)
    {
        node.hardwareConfigurationHandler.onGetConfigType = {eHCH_S_OK, FFConfigType::Mrc};
        Command command = NearEndTest::command(channel);
        command.FFConfigType = "MrcTwoBoards";
        return command;
    }

    // Lets the first pass fail, so that the second runs behind a recovery.
    void failFirstPass(bool dspNeedsReconfiguration = false)
    {
        node.channel1.acmHandler.onMuteAcm.inTurn({0x8000, eACMH_S_OK});
        node.channel1.dspApi.controlApi.onCheckDspReconfiguration = {eTI_S_OK, dspNeedsReconfiguration};
    }

    void setFrequencies(std::uint32_t duplexType, std::uint32_t maxTx, std::uint32_t maxRx)
    {
        FrequencyCapability capability;
        capability.DuplexType = duplexType;
        capability.MaxTXFrequency = maxTx;
        capability.MaxRXFrequency = maxRx;
        // Whatever else the record holds is of no use here.
        capability.MinTXFrequency = 11;
        capability.MinRXFrequency = 22;
        capability.TXBaseFrequency = 33;
        capability.RXBaseFrequency = 44;
        node.channel1.radioCapability.onGetFrequencyCapability = capability;
    }

    std::string frameLines() const
    {
        return linesWith({"setRadioFrameId(", "isChannelInUse", "FrameUpdateMode"});
    }
    std::string frequencyLines() const { return linesWith({"requency(", "requencyChanged("}); }
};

// --- the radio frame

TEST_F(NearEndFrameTest, FrameIsWrittenToTheChannelAlone)
{
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(frameLines(), R"(
IHardwareConfigurationHandler.setRadioFrameId(2, 4711, 1)
)");
}

TEST_F(NearEndFrameTest, FirstPassLeavesTheUpdateModeAloneEvenIfTheDspNeedsAFullRecovery)
{
    node.channel1.dspApi.controlApi.onGetRequiredRecovery = {eTI_S_OK, Recover::Dsp, false};
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("startDspRecovery(2)"), 1U);
    EXPECT_EQ(count("FrameUpdateMode"), 0U);
}

TEST_F(NearEndFrameTest, FullRecoverySwitchesTheUpdateModeAroundTheWrite)
{
    failFirstPass();
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(frameLines(), R"(
IHardwareConfigurationHandler.getFrameUpdateMode()
IHardwareConfigurationHandler.setFrameUpdateMode(1)
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
IHardwareConfigurationHandler.isChannelInUse(2)
IHardwareConfigurationHandler.setFrameUpdateMode(5)
)");
}

TEST_F(NearEndFrameTest, RecoveryWithoutConfigurationLeavesTheUpdateModeAlone)
{
    failFirstPass(true);
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("startDspRecovery(1)"), 1U);
    EXPECT_EQ(count("FrameUpdateMode"), 0U);
}

TEST_F(NearEndFrameTest, RecoveryWithoutConfigurationLeavesTheUpdateModeAloneThoughTheDspMakesItAFullOne)
{
    failFirstPass(true);
    node.channel1.dspApi.controlApi.onGetRequiredRecovery = {eTI_S_OK, Recover::Dsp, false};
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("startDspRecovery(2)"), 2U);
    EXPECT_EQ(count("FrameUpdateMode"), 0U);
}

TEST_F(NearEndFrameTest, ResultsOfTheUpdateModeAreIgnoredAndAModeThatCantBeReadIs0)
{
    failFirstPass();
    node.hardwareConfigurationHandler.onGetFrameUpdateMode = 0x8000;
    node.hardwareConfigurationHandler.onSetFrameUpdateMode = 0x8000;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"FrameUpdateMode"}), R"(
IHardwareConfigurationHandler.getFrameUpdateMode()
IHardwareConfigurationHandler.setFrameUpdateMode(1)
IHardwareConfigurationHandler.setFrameUpdateMode(0)
)");
}

TEST_F(NearEndFrameTest, FailedWriteLeavesTheUpdateModeSwitched)
{
    node.hardwareConfigurationHandler.onSetRadioFrameId = 0x8000;
    EXPECT_EQ(run(command()),
              failedWith("IHardwareConfigurationHandler->setRadioFrameId failed (EHCHResult = 32768)"));
    EXPECT_EQ(frameLines(), R"(
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
IHardwareConfigurationHandler.getFrameUpdateMode()
IHardwareConfigurationHandler.setFrameUpdateMode(1)
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
IHardwareConfigurationHandler.getFrameUpdateMode()
IHardwareConfigurationHandler.setFrameUpdateMode(1)
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
)");
}

TEST_F(NearEndFrameTest, FailedSecondWriteLeavesTheUpdateModeSwitchedToo)
{
    failFirstPass();
    node.hardwareConfigurationHandler.onSetRadioFrameId.inTurn({eHCH_S_OK, 4294967295U});
    EXPECT_EQ(run(mrc2()),
              failedWith("IHardwareConfigurationHandler->setRadioFrameId failed (EHCHResult = 4294967295)"));
    EXPECT_EQ(frameLines(), R"(
IHardwareConfigurationHandler.getFrameUpdateMode()
IHardwareConfigurationHandler.setFrameUpdateMode(1)
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
IHardwareConfigurationHandler.isChannelInUse(2)
IHardwareConfigurationHandler.setRadioFrameId(2, 4711, 1)
IHardwareConfigurationHandler.getFrameUpdateMode()
IHardwareConfigurationHandler.setFrameUpdateMode(1)
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
)");
}

// --- the second frame of MRC over two boards

TEST_F(NearEndFrameTest, Mrc2OnChannel1WritesTheFrameToChannel2AsWell)
{
    EXPECT_EQ(run(mrc2()), kSuccess);
    EXPECT_EQ(frameLines(), R"(
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
IHardwareConfigurationHandler.isChannelInUse(2)
IHardwareConfigurationHandler.setRadioFrameId(2, 4711, 1)
)");
}

TEST_F(NearEndFrameTest, Mrc2BehindAFullRecoveryWritesBothFramesInTheSwitchedMode)
{
    failFirstPass();
    EXPECT_EQ(run(mrc2()), kSuccess);
    EXPECT_EQ(frameLines(), R"(
IHardwareConfigurationHandler.getFrameUpdateMode()
IHardwareConfigurationHandler.setFrameUpdateMode(1)
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
IHardwareConfigurationHandler.isChannelInUse(2)
IHardwareConfigurationHandler.setRadioFrameId(2, 4711, 1)
IHardwareConfigurationHandler.setFrameUpdateMode(5)
)");
}

TEST_F(NearEndFrameTest, FailureOfTheSecondWriteHasATextOfItsOwnAndAsksForARecovery)
{
    node.hardwareConfigurationHandler.onSetRadioFrameId.inTurn({eHCH_S_OK, 0x8002, eHCH_S_OK});
    EXPECT_EQ(run(mrc2()), kSuccess);
    EXPECT_EQ(linesWith({"ailed"}), R"(
2 ZYR.TI.CriSetRadioChannelNearEnd: IHardwareConfigurationHandler->setRadioFrameId failed on CH2 (MRC2)(EHCHResult = 32770)
3 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed, retry with DSP recovery
)");
}

TEST_F(NearEndFrameTest, Mrc2OnChannel2WritesNoSecondFrame)
{
    EXPECT_EQ(run(mrc2(2)), kSuccess);
    EXPECT_EQ(frameLines(), R"(
IHardwareConfigurationHandler.setRadioFrameId(2, 4711, 1)
)");
}

TEST_F(NearEndFrameTest, Mrc2DuringAWarmRestartWritesNoSecondFrame)
{
    const zyr_platform::StartUpState warm(Zyr::ZyrInitState::WarmRestart);
    EXPECT_EQ(run(mrc2()), kSuccess);
    EXPECT_EQ(frameLines(), R"(
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
IHardwareConfigurationHandler.isChannelInUse(2)
)");
}

TEST_F(NearEndFrameTest, Mrc2WritesNoSecondFrameOverAChannelThatIsInUse)
{
    node.hardwareConfigurationHandler.onIsChannelInUse = true;
    EXPECT_EQ(run(mrc2()), kSuccess);
    EXPECT_EQ(frameLines(), R"(
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
IHardwareConfigurationHandler.isChannelInUse(2)
)");
}

TEST_F(NearEndFrameTest, Mrc2ThatIsntMarkedAsPresentWritesNoSecondFrame)
{
    Command command = mrc2();
    command.ffConfigTypePresent = false;
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(frameLines(), R"(
IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)
)");
}

TEST_F(NearEndFrameTest, OtherTypesOverTwoBoardsWriteNoSecondFrame)
{
    for (const char* const type :
         {"Mrc", "MrcXpicTwoBoards", "XpicTwoBoards", "Mimo2", "Standard", "SisoCarrierAggregation"}) {
        Command command = mrc2();
        command.FFConfigType = type;
        EXPECT_EQ(run(command), kSuccess) << type;
    }
    EXPECT_EQ(count("setRadioFrameId(2"), 0U);
    EXPECT_EQ(count("setRadioFrameId(1"), 6U);
}

// --- the threshold

TEST_F(NearEndFrameTest, ThresholdFollowsTheLowestModulation)
{
    node.channel2.acmHandler.onGetPhyMode = {eACMH_S_OK, 4294967295U};
    node.channel2.rssiHandler.onCalculateRssiThreshold = {eRSSI_S_OK, 2147483647};
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(linesWith({"getPhyMode", "RssiThreshold"}), R"(
IAcmHandler_2.getPhyMode(31)
IRssiHandler_2.calculateRssiThreshold(4294967295)
IRssiHandler_2.setRssiThreshold(2147483647)
)");
}

TEST_F(NearEndFrameTest, ModeAndThresholdThatNobodyFillsAre0)
{
    node.channel1.acmHandler.onGetPhyMode = eACMH_S_OK;
    node.channel1.rssiHandler.onCalculateRssiThreshold = eRSSI_S_OK;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"RssiThreshold"}), R"(
IRssiHandler_1.calculateRssiThreshold(0)
IRssiHandler_1.setRssiThreshold(0)
)");
}

TEST_F(NearEndFrameTest, ModulationWithoutAModeIsNamed)
{
    node.channel1.acmHandler.onGetPhyMode = 0x8001;
    Command command = NearEndTest::command();
    command.minModulation = ModulationAndCoding::QAM_1024_ULTRA_STRONG;
    EXPECT_EQ(run(command), failedWith("IAcmHandler->GetPhyMode failed for minModulationAndCode = "
                                       "1024QAM_ULTRA_STRONG (EACMHResult = 32769)"));
    command.minModulation = static_cast<ModulationAndCoding>(5);
    EXPECT_EQ(run(command), failedWith("IAcmHandler->GetPhyMode failed for minModulationAndCode = "
                                       "UNDEFINED (EACMHResult = 32769)"));
    EXPECT_EQ(count("RssiThreshold"), 0U);
}

TEST_F(NearEndFrameTest, ThresholdThatCantBeCalculatedIsntSet)
{
    node.channel1.rssiHandler.onCalculateRssiThreshold = {0x8000, -1};
    EXPECT_EQ(run(command()), failedWith("IRssiHandler->calculateRssiThreshold failed(ERSSIResult = 32768)"));
    EXPECT_EQ(count("setRssiThreshold"), 0U);
}

TEST_F(NearEndFrameTest, ThresholdThatCantBeSetEndsTheCommand)
{
    node.channel1.rssiHandler.onSetRssiThreshold = 0x8000;
    EXPECT_EQ(run(command()), failedWith("IRssiHandler->SetRssiThreshold failed (ERSSIResult = 32768)"));
    EXPECT_EQ(count("setReferenceSec"), 0U);
}

// --- the frequencies

TEST_F(NearEndFrameTest, VariableDuplexTakesTheReceiveFrequencyOfTheCommand)
{
    setFrequencies(0, 18500000, 19500000);
    Command command = NearEndTest::command();
    command.rxFrequency_kHz = 4294967295U;
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(frequencyLines(), R"(
IFrequencyController_1.setTxFrequency(18000000, 1)
ITxIQImbalanceHandler_1.OnTxFrequencyChanged(18000000)
ISystemPowerController_1.onTxFrequencyChanged(18000000)
IFrequencyController_1.setRxFrequency(4294967295, 1)
)");
}

TEST_F(NearEndFrameTest, FixedDuplexDistanceGivesTheReceiveFrequencyThoughTheCommandHasNone)
{
    setFrequencies(1, 18500000, 19510000);
    Command command = NearEndTest::command();
    command.rxFrequency_kHz = 0;
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(linesWith({"setRxFrequency"}), R"(
IFrequencyController_1.setRxFrequency(19010000, 1)
)");
}

TEST_F(NearEndFrameTest, FixedDuplexDistanceDropsTheReceiveFrequencyOfTheCommand)
{
    setFrequencies(1, 19510000, 18500000); // receives below
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"setRxFrequency"}), R"(
IFrequencyController_1.setRxFrequency(16990000, 1)
)");
}

TEST_F(NearEndFrameTest, FixedDuplexDistanceIsAddedIn32Bits)
{
    setFrequencies(1, 18000001, 0);
    EXPECT_EQ(run(command()), kSuccess);
    setFrequencies(1, 0, 4294967295U);
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"setRxFrequency"}), R"(
IFrequencyController_1.setRxFrequency(4294967295, 1)
IFrequencyController_1.setRxFrequency(17999999, 1)
)");
}

TEST_F(NearEndFrameTest, CapabilityIsReadAnewBehindTheTransmitFrequency)
{
    FrequencyCapability fixed;
    fixed.DuplexType = 1;
    fixed.MaxRXFrequency = 1000;
    node.channel1.radioCapability.onGetFrequencyCapability.inTurn({FrequencyCapability(), fixed});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"getFrequencyCapability", "requency(", "requencyChanged"}), R"(
IRadioCapability_1.getFrequencyCapability()
IFrequencyController_1.setTxFrequency(18000000, 1)
ITxIQImbalanceHandler_1.OnTxFrequencyChanged(18000000)
ISystemPowerController_1.onTxFrequencyChanged(18000000)
IRadioCapability_1.getFrequencyCapability()
IFrequencyController_1.setRxFrequency(18001000, 1)
)");
}

TEST_F(NearEndFrameTest, DuplexTypeThatIsNoTypeLeavesTheReceiveFrequencyOfTheCommand)
{
    FrequencyCapability odd;
    odd.DuplexType = 2;
    odd.MaxRXFrequency = 1000;
    node.channel1.radioCapability.onGetFrequencyCapability.inTurn({FrequencyCapability(), odd});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"setRxFrequency"}), R"(
IFrequencyController_1.setRxFrequency(19010000, 1)
)");
}

TEST_F(NearEndFrameTest, PowerControllerIsToldWithoutAnIqImbalanceHandler)
{
    withdraw("ITxIQImbalanceHandler_1");
    ASSERT_EQ(impl.initialize(2), 0);
    transcript.clear();
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(frequencyLines(), R"(
IFrequencyController_1.setTxFrequency(18000000, 1)
ISystemPowerController_1.onTxFrequencyChanged(18000000)
IFrequencyController_1.setRxFrequency(19010000, 1)
)");
}

TEST_F(NearEndFrameTest, RadioUnitThatIsAwayGetsNoFrequencyAndTheCommandSucceeds)
{
    node.channel1.radio.onIsAvailable = false;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(frequencyLines(), "\n");
    EXPECT_EQ(linesWith({"frequencies since"}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: Skip updating frequencies since RAU is not available
)");
    EXPECT_EQ(count("setTxIfSwitch2T2R"), 1U);
}

TEST_F(NearEndFrameTest, RadioUnitThatIsAwaySaysSoBeforeAnyFrequencyAtLevel7)
{
    showAllLevels();
    node.channel1.radio.onIsAvailable = false;
    run(command());
    EXPECT_EQ(linesWith({"7 ZYR.TI.CriSetRadioChannelNearEnd: Going", "frequencies since"}), R"(
7 ZYR.TI.CriSetRadioChannelNearEnd: Going to call updateFrequencies
4 ZYR.TI.CriSetRadioChannelNearEnd: Skip updating frequencies since RAU is not available
)");
}

TEST_F(NearEndFrameTest, FailedTransmitFrequencyTellsNoListener)
{
    node.channel1.frequencyController.onSetTxFrequency = 0x8000;
    EXPECT_EQ(run(command()), failedWith("IFrequencyController->setTxFrequency failed (EFCResult = 32768)"));
    EXPECT_EQ(frequencyLines(), R"(
IFrequencyController_1.setTxFrequency(18000000, 1)
)");
}

TEST_F(NearEndFrameTest, FailedIqImbalanceHandlerLeavesTheTransmitFrequencyWritten)
{
    node.channel1.txIqImbalanceHandler.onOnTxFrequencyChanged = 0x8000;
    EXPECT_EQ(run(command()),
              failedWith("ITxIQImbalanceHandler->OnTxFrequencyChanged failed (EFHResult = 32768)"));
    EXPECT_EQ(frequencyLines(), R"(
IFrequencyController_1.setTxFrequency(18000000, 1)
ITxIQImbalanceHandler_1.OnTxFrequencyChanged(18000000)
)");
}

TEST_F(NearEndFrameTest, FailedPowerControllerFailsUnderTheNameOfTheIqImbalanceHandler)
{
    node.channel1.systemPowerController.onOnTxFrequencyChanged = 0x8000;
    EXPECT_EQ(run(command()),
              failedWith("ITxIQImbalanceHandler->OnTxFrequencyChanged failed (ESPCResult = 32768)"));
    EXPECT_EQ(frequencyLines(), R"(
IFrequencyController_1.setTxFrequency(18000000, 1)
ITxIQImbalanceHandler_1.OnTxFrequencyChanged(18000000)
ISystemPowerController_1.onTxFrequencyChanged(18000000)
)");
}

TEST_F(NearEndFrameTest, FailedReceiveFrequencyTakesNothingBack)
{
    node.channel1.frequencyController.onSetRxFrequency = 0x8000;
    EXPECT_EQ(run(command()), failedWith("IFrequencyController->setRxFrequency failed (EFCResult = 32768)"));
    EXPECT_EQ(frequencyLines(), R"(
IFrequencyController_1.setTxFrequency(18000000, 1)
ITxIQImbalanceHandler_1.OnTxFrequencyChanged(18000000)
ISystemPowerController_1.onTxFrequencyChanged(18000000)
IFrequencyController_1.setRxFrequency(19010000, 1)
)");
    EXPECT_EQ(count("setTxIfSwitch2T2R"), 0U);
}

// --- the radio unit's switch

TEST_F(NearEndFrameTest, SwitchOfChannel2IsNumber1)
{
    Command command = NearEndTest::command(2);
    command.rauMultiTrxConfig.ifSwitchMode = 0U;
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(linesWith({"setTxIfSwitch2T2R"}), R"(
IRauHandler_2.setTxIfSwitch2T2R(0, 1)
)");
}

TEST_F(NearEndFrameTest, SwitchThatTheCommandDoesntGiveIsLeftAlone)
{
    Command command = NearEndTest::command();
    command.rauMultiTrxConfig.ifSwitchMode.reset();
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(linesWith({"IRauHandler", "MultiTrx"}), R"(
5 ZYR.TI.CriSetRadioChannelNearEnd: RAU has nothing to configure for MultiTrx: return OK
)");
}

TEST_F(NearEndFrameTest, ChannelWithoutARauHandlerSaysSoAndGoesOn)
{
    withdraw("IRauHandler_2");
    ASSERT_EQ(impl.initialize(2), 0);
    transcript.clear();
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(linesWith({"IRauHandler", "MultiTrx", "enableAcm"}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: Did not find interface: IRauHandler_2
IAcmHandler_2.enableAcm(true)
)");
}

TEST_F(NearEndFrameTest, ChannelWithoutARauHandlerSaysSoAlsoWithoutASwitch)
{
    withdraw("IRauHandler_2");
    ASSERT_EQ(impl.initialize(2), 0);
    transcript.clear();
    setTraceLevel("ZYR.TI.CriSetRadioChannelNearEnd", 7);
    Command command = NearEndTest::command(2);
    command.rauMultiTrxConfig.ifSwitchMode.reset();
    EXPECT_EQ(run(command), kSuccess);
    EXPECT_EQ(linesWith({"IRauHandler", "MultiTrx"}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: Did not find interface: IRauHandler_2
)");
}

TEST_F(NearEndFrameTest, SwitchIsSetEvenIfTheRadioUnitIsAway)
{
    node.channel1.radio.onIsAvailable = false;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("IRauHandler_1.setTxIfSwitch2T2R(3, 0)"), 1U);
}

TEST_F(NearEndFrameTest, FailureOfTheSwitchPrintsTheResultByNameOrNumber)
{
    const auto failWith = [this](std::uint32_t code) {
        node.channel1.rauHandler.onSetTxIfSwitch2T2R = code;
        return run(command());
    };
    EXPECT_EQ(failWith(0x8001),
              failedWith("rauhandler->setTxIfSwitch2T2R failed (ERAUHResult = Radio is not connected)"));
    EXPECT_EQ(failWith(0x8000),
              failedWith("rauhandler->setTxIfSwitch2T2R failed (ERAUHResult = General Failure)"));
    EXPECT_EQ(failWith(0x8006), failedWith("rauhandler->setTxIfSwitch2T2R failed (ERAUHResult = 32774)"));
    EXPECT_EQ(failWith(0xFFFFFFFFU),
              failedWith("rauhandler->setTxIfSwitch2T2R failed (ERAUHResult = 4294967295)"));
    EXPECT_EQ(count("overrideTxPowerState(1)"), 0U);
}

} // namespace
} // namespace zyr_top_api
