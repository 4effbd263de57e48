#include "IIfLoopDriver.h"
#include "ILoopController.h"
#include "IOutputPowerCalculator.h"
#include "IRssiHandler.h"
#include "RecoveryController.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using zyr_top_api::AcmMode;
using zyr_top_api::AcmModePosition;
using zyr_top_api::AcmRlpControl;
using zyr_top_api::LoopStatePair;
using zyr_top_api::Modulation;
using enum zyr_top_api::ModulationAndCoding;

/// A hop without fading whose channel 1 sends 10 dBm; the far end sends 20 dBm. With a path loss of 60 dB the
/// level is -40 dBm here and -50 dBm there, enough for every modulation.
class AcmAndLoopsTest : public SimulationFixture
{
  protected:
    AcmAndLoopsTest()
    {
        startNode({.pathLoss_dBTenths = 600, .fading_dBTenths = 0});
        configure(1);
        transmit(1, 0, 100);
    }

    static IDspAcmApi& dspAcm() { return *dsp(1).getAcmApi(); }

    static void setMode(AcmMode mode) { EXPECT_EQ(dspAcm().setAcmMode(mode, AcmModePosition::Internal), 0U); }

    static void setLoop(const std::string& name, bool closed)
    {
        auto& loops = require<nord::zyr::loops::ILoopController>("ILoopController");
        EXPECT_EQ(loops.setLoop(name, closed), 0U);
    }

    static void sendTone(bool on)
    {
        const auto mode = on ? zyr_top_api::eDspATxModeOneTone : zyr_top_api::eDspATxModeNormal;
        EXPECT_EQ(dspChannel(1).setDspTxMode(bcm::types::ModemChain::Main, mode, 0, 0), 0U);
    }

    static ModulationAndCoding rx() { return acm(1).getCurrentRxModulationAndCode(); }
    static ModulationAndCoding tx() { return acm(1).getCurrentTxModulationAndCode(); }

    static int level()
    {
        int value = 0;
        EXPECT_EQ(require<IRssiHandler>("IRssiHandler", 1).getRssi(value), 0U);
        return value;
    }

    static std::map<ModulationAndCoding, int> thresholds()
    {
        std::map<ModulationAndCoding, int> result;
        for (const auto& record : dspAcm().getAcmThresholds()) {
            result[record.modulationAndCoding] = record.threshold;
        }
        return result;
    }

    /// Moves the path loss across every threshold of channel 1 and expects the modulation to change there.
    /// The noise floor of 56 MHz is -90.5 dBm, so that the SNIR is 110.5 dB less the path loss.
    void expectHopToLeaveEachModulationAtItsThreshold()
    {
        const auto ladder = dspAcm().getAcmThresholds();
        ASSERT_FALSE(ladder.empty());
        auto below = UNDEFINED;
        for (const auto& [modulation, threshold] : ladder) {
            node().setPathLoss_dBTenths(1105 - threshold);
            EXPECT_EQ(rx(), modulation) << threshold;
            node().setPathLoss_dBTenths(1105 - threshold + 1);
            EXPECT_EQ(rx(), below) << threshold;
            below = modulation;
        }
    }
};

TEST_F(AcmAndLoopsTest, closedLoopBringsTheOwnSignalBackAndOpeningItRestoresTheHop)
{
    for (const std::string name : {"IfLoop1", "RfLoop1"}) {
        setLoop(name, true);
        EXPECT_EQ(level(), -400) << "10 dBm, less 50 dB";
        transmit(1, 0, 40);
        EXPECT_EQ(level(), -460) << "follows the own transmitter";
        EXPECT_EQ(node().channel(1).receiver.farEndSnir, 0);
        EXPECT_TRUE(dspStatus(1).isLinkUp()) << "locked to the own signal";
        node().setPathLoss_dBTenths(1100);
        EXPECT_EQ(level(), -460) << "not the far end's";
        node().setPathLoss_dBTenths(600);
        setLoop(name, false);
        transmit(1, 0, 100);
        EXPECT_EQ(level(), -400);
        EXPECT_EQ(node().channel(1).receiver.farEndSnir, 405);
        EXPECT_TRUE(dspStatus(1).isLinkUp());
        EXPECT_EQ(rx(), QAM_4096_LIGHT);
    }
}

TEST_F(AcmAndLoopsTest, closedLoopRaisesAlarmsUntilItIsOpened)
{
    EXPECT_EQ(alarms(), "");
    setLoop("RfLoop1", true);
    EXPECT_EQ(alarms(), "FarEndLinkDown 1 active 1\nLoopClosed 1 active 1\n");
    setLoop("IfLoop1", true);
    setLoop("RfLoop1", false);
    EXPECT_EQ(alarms(), "FarEndLinkDown 1 active 1\nLoopClosed 1 active 1\n") << "one is still closed";
    EXPECT_EQ(require<IIfLoopDriver>("IIfLoopDriver", 1).setIfLoop(false), 0);
    EXPECT_EQ(alarms(), "FarEndLinkDown 1 inactive 1\nLoopClosed 1 inactive 1\n");
}

TEST_F(AcmAndLoopsTest, closedLoopOfATransmitterThatIsOffBringsNothingBack)
{
    EXPECT_EQ(power(1).overrideTxPowerState(zyr_top_api::ETxPowerOverrideState::ForcedOff), 0U);
    time().advance(300ms);
    EXPECT_EQ(level(), -400) << "the far end's";
    setLoop("IfLoop1", true);
    EXPECT_EQ(level(), -990);
    EXPECT_EQ(dspStatus(1).getSnir(), 0);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
}

TEST_F(AcmAndLoopsTest, closedLoopNeedsNoFarEnd)
{
    node().setFarEndTransmits(false);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    setLoop("IfLoop1", true);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
}

TEST_F(AcmAndLoopsTest, bothDirectionsOfAClosedLoopAreOneSignal)
{
    configure(1, 103, QAM_4_STRONG, QAM_256);
    setLoop("IfLoop1", true);
    EXPECT_EQ(rx(), QAM_256);
    EXPECT_EQ(tx(), QAM_256);
    EXPECT_EQ(dspAcm().setAcmRlpControl(AcmRlpControl::StandbyTx), 0U);
    EXPECT_EQ(rx(), QAM_4_STRONG);
    EXPECT_EQ(tx(), QAM_4_STRONG);
    EXPECT_EQ(dspAcm().setAcmRlpControl(AcmRlpControl::Normal), 0U);
    sendTone(true);
    EXPECT_EQ(level(), -400) << "the tone comes back";
    EXPECT_FALSE(dspStatus(1).isLinkUp()) << "but the receiver can't lock to it";
}

TEST_F(AcmAndLoopsTest, activeAndUndefinedModesMoveWithTheHop)
{
    for (const auto mode : {AcmMode::Active, AcmMode::Undefined}) {
        setMode(mode);
        node().setPathLoss_dBTenths(905);
        EXPECT_EQ(rx(), QAM_64);
        EXPECT_EQ(tx(), QAM_4_LIGHT);
        node().setPathLoss_dBTenths(600);
        EXPECT_EQ(rx(), QAM_4096_LIGHT);
        EXPECT_EQ(tx(), QAM_4096_LIGHT);
    }
}

TEST_F(AcmAndLoopsTest, passiveModeHoldsTheModulationOfEachDirection)
{
    node().setPathLoss_dBTenths(905);
    setMode(AcmMode::Passive);
    node().setPathLoss_dBTenths(600);
    EXPECT_EQ(rx(), QAM_64);
    EXPECT_EQ(tx(), QAM_4_LIGHT);
    setMode(AcmMode::Active);
    EXPECT_EQ(rx(), QAM_4096_LIGHT);
    EXPECT_EQ(tx(), QAM_4096_LIGHT);
}

TEST_F(AcmAndLoopsTest, passiveModeHoldsThroughALinkThatIsDownAndThroughMuting)
{
    node().setPathLoss_dBTenths(905);
    setMode(AcmMode::Passive);
    node().setFarEndTransmits(false);
    EXPECT_EQ(rx(), UNDEFINED);
    node().setFarEndTransmits(true);
    EXPECT_EQ(rx(), QAM_64);
    EXPECT_EQ(acm(1).muteAcm(), 0U);
    EXPECT_EQ(rx(), QAM_4_STRONG);
    EXPECT_EQ(acm(1).restoreAcm(), 0U);
    EXPECT_EQ(rx(), QAM_64);
}

TEST_F(AcmAndLoopsTest, linkOfThePassiveModeGoesDownWithTheModulationThatIsHeld)
{
    node().setPathLoss_dBTenths(905);
    setMode(AcmMode::Passive);
    node().setPathLoss_dBTenths(915);
    EXPECT_EQ(rx(), QAM_64) << "needs 19 dB of 19";
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    node().setPathLoss_dBTenths(916);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    setMode(AcmMode::Active);
    EXPECT_EQ(rx(), QAM_64_STRONG);
}

TEST_F(AcmAndLoopsTest, passiveModeHoldsWithinTheRange)
{
    node().setPathLoss_dBTenths(905);
    setMode(AcmMode::Passive);
    configure(1, 103, QAM_4_STRONG, QAM_16);
    EXPECT_EQ(rx(), QAM_16);
    configure(1, 103, QAM_64_LIGHT, QAM_256);
    node().setPathLoss_dBTenths(600);
    EXPECT_EQ(rx(), QAM_64_LIGHT);
    EXPECT_EQ(tx(), QAM_64_LIGHT);
}

TEST_F(AcmAndLoopsTest, basicModeHoldsTheLeastModulation)
{
    setMode(AcmMode::Basic);
    EXPECT_EQ(rx(), QAM_4_STRONG);
    EXPECT_EQ(tx(), QAM_4_STRONG);
    setMode(AcmMode::Passive);
    EXPECT_EQ(rx(), QAM_4_STRONG) << "which was in force";
    setMode(AcmMode::Active);
    EXPECT_EQ(rx(), QAM_4096_LIGHT);
}

TEST_F(AcmAndLoopsTest, standbyTakesTheTransmitDirectionAloneToTheLeastModulation)
{
    EXPECT_EQ(dspAcm().setAcmRlpControl(AcmRlpControl::StandbyTx), 0U);
    EXPECT_EQ(tx(), QAM_4_STRONG);
    EXPECT_EQ(rx(), QAM_4096_LIGHT);
    EXPECT_EQ(dspAcm().setAcmRlpControl(AcmRlpControl::ActiveTx), 0U);
    EXPECT_EQ(tx(), QAM_4096_LIGHT);
}

TEST_F(AcmAndLoopsTest, hopLeavesEachModulationAtItsThreshold)
{
    EXPECT_EQ(thresholds().size(), 30U);
    EXPECT_EQ(thresholds().at(QAM_64), 190);
    expectHopToLeaveEachModulationAtItsThreshold();
}

TEST_F(AcmAndLoopsTest, thresholdsAreThoseOfTheRange)
{
    configure(1, 103, QAM_16_STRONG, QAM_32);
    const auto records = thresholds();
    const std::map<ModulationAndCoding, int> expected{
        {QAM_16_STRONG, 115}, {QAM_16, 130}, {QAM_16_LIGHT, 142}, {QAM_32_STRONG, 145}, {QAM_32, 160}};
    EXPECT_EQ(records, expected);
}

TEST_F(AcmAndLoopsTest, farEndPmaxShiftsTheThresholdsAndTheHopFollowsThem)
{
    configure(1, 103, QAM_16, QAM_64_LIGHT);
    EXPECT_EQ(acm(1).setFarEndPmaxCapability({{Modulation::QAM_16, 250}, {Modulation::QAM_64, 210}}), 0U);
    EXPECT_EQ(thresholds().at(QAM_16), 130) << "the greatest power of all";
    EXPECT_EQ(thresholds().at(QAM_32), 160) << "not told";
    EXPECT_EQ(thresholds().at(QAM_64), 230) << "4 dB less power";
    expectHopToLeaveEachModulationAtItsThreshold();
    node().setPathLoss_dBTenths(1105 - 229);
    EXPECT_EQ(tx(), QAM_16) << "the far end hears 12.9 dB";
    EXPECT_EQ(acm(1).setFarEndPmaxCapability({}), 0U);
    EXPECT_EQ(thresholds().at(QAM_64), 190);
}

TEST_F(AcmAndLoopsTest, absurdFarEndPmaxStaysWithinTheScale)
{
    const std::map<Modulation, int> absurd{{Modulation::QAM_16, std::numeric_limits<int>::max()},
                                           {Modulation::QAM_64, std::numeric_limits<int>::min()}};
    EXPECT_EQ(acm(1).setFarEndPmaxCapability(absurd), 0U);
    EXPECT_EQ(thresholds().at(QAM_16), 130);
    EXPECT_EQ(thresholds().at(QAM_64), 640);
}

TEST_F(AcmAndLoopsTest, cachedFarEndPmaxComesIntoForceWhenTheChannelIsConfigured)
{
    startNode();
    EXPECT_EQ(acm(1).setMinMaxModulationAndCode(QAM_16, QAM_64), 0U);
    EXPECT_EQ(acm(1).setFarEndPmaxCapability({{Modulation::QAM_16, 250}, {Modulation::QAM_64, 210}}),
              0x800CU);
    acm(1).cacheThresholds();
    EXPECT_EQ(thresholds().at(QAM_64), 190);
    EXPECT_TRUE(node().channel(1).thresholdsCached);
    configure(1);
    EXPECT_EQ(thresholds().at(QAM_64), 230);
    EXPECT_FALSE(node().channel(1).thresholdsCached);
    EXPECT_FALSE(node().channel(1).farEndPmaxCached);
}

TEST_F(AcmAndLoopsTest, farEndPmaxIsCachedWhileTheDspRecovers)
{
    EXPECT_EQ(acm(1).setFarEndPmaxCapability({{Modulation::QAM_16, 250}, {Modulation::QAM_64, 210}}), 0U);
    auto& recovery = require<nord::zyr::services::recovery::RecoveryController>("RecoveryController");
    EXPECT_EQ(recovery.startDspRecovery(zyr_top_api::Recover::Dsp), 0U);
    EXPECT_EQ(acm(1).setFarEndPmaxCapability({{Modulation::QAM_16, 250}, {Modulation::QAM_64, 200}}),
              0x800CU);
    EXPECT_EQ(thresholds().at(QAM_64), 230);
    time().advance(10min);
    EXPECT_EQ(thresholds().at(QAM_64), 240);
}

TEST_F(AcmAndLoopsTest, boosterRaisesModulationsUpToItsGreatestAndLimitsItsInput)
{
    startNode({.radioType = 3, .pathLoss_dBTenths = 600, .fading_dBTenths = 0});
    auto& calculator = require<IOutputPowerCalculator>("IOutputPowerCalculator", 1);
    const auto greatest = [&] {
        int minPower = 0;
        std::map<ModulationAndCoding, int> powers;
        EXPECT_EQ(calculator.getMaxOutputPower(103, QAM_4, QAM_1024, zyr_top_api::ReferenceSec::Sec2,
                                               minPower, powers),
                  0U);
        return std::vector{powers.at(QAM_4), powers.at(QAM_256_LIGHT), powers.at(QAM_512_STRONG)};
    };
    EXPECT_EQ(greatest(), (std::vector{300, 270, 265}));
    EXPECT_EQ(calculator.setBooster(1, 60, 280, Modulation::QAM_256), 0U);
    EXPECT_EQ(greatest(), (std::vector{340, 330, 265})) << "28 dBm at most go in";
    EXPECT_EQ(calculator.setBooster(0, 60, 280, Modulation::QAM_256), 0U);
    EXPECT_EQ(greatest(), (std::vector{300, 270, 265}));
}

TEST_F(AcmAndLoopsTest, boosterRaisesThePowerThatIsSent)
{
    startNode({.radioType = 3, .pathLoss_dBTenths = 600, .fading_dBTenths = 0});
    EXPECT_EQ(acm(1).setMinMaxModulationAndCode(QAM_4, QAM_256), 0U);
    transmit(1, 0, 500);
    EXPECT_EQ(power(1).getReportedOutputPower(), 300);
    auto& calculator = require<IOutputPowerCalculator>("IOutputPowerCalculator", 1);
    EXPECT_EQ(calculator.setBooster(1, 60, 280, Modulation::QAM_256), 0U);
    EXPECT_EQ(power(1).getReportedOutputPower(), 340);
}

TEST_F(AcmAndLoopsTest, boosterIsRefusedWithoutAGreatestModulation)
{
    startNode({.radioType = 3});
    auto& calculator = require<IOutputPowerCalculator>("IOutputPowerCalculator", 1);
    EXPECT_EQ(calculator.setBooster(1, 60, 280, Modulation::UNDEFINED), 0x8000U);
    EXPECT_EQ(node().channel(1).transmitter.boosterPresence, 0);
    EXPECT_EQ(calculator.setBooster(0, 0, 0, Modulation::UNDEFINED), 0U) << "no booster";
}

TEST_F(AcmAndLoopsTest, singleToneTakesTheLinkDownAtBothEnds)
{
    sendTone(true);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    EXPECT_EQ(rx(), UNDEFINED);
    EXPECT_EQ(level(), -400) << "the far end still sends";
    EXPECT_EQ(alarms(), "FarEndLinkDown 1 active 1\nLinkDown 1 active 1\n");
    sendTone(false);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(rx(), QAM_4096_LIGHT);
    EXPECT_EQ(alarms(), "FarEndLinkDown 1 inactive 1\nLinkDown 1 inactive 1\n");
    acm(1).disableModulation();
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    acm(1).enableModulation();
    EXPECT_TRUE(dspStatus(1).isLinkUp());
}

TEST_F(AcmAndLoopsTest, farEndLosesTheLinkWhenItHearsTooLittle)
{
    node().setPathLoss_dBTenths(950);
    EXPECT_EQ(alarms(), "") << "the far end hears 5.5 dB";
    node().setPathLoss_dBTenths(951);
    EXPECT_EQ(alarms(), "FarEndLinkDown 1 active 1\n");
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(power(1).overrideTxPowerState(zyr_top_api::ETxPowerOverrideState::ForcedOff), 0U);
    time().advance(300ms);
    EXPECT_EQ(alarms(), "FarEndLinkDown 1 inactive 1\nTxOff 1 active 1\n") << "as it can't be otherwise";
}

} // namespace
