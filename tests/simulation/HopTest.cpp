#include "IOutputPowerCalculator.h"
#include "IPpsController.h"
#include "IRssiHandler.h"
#include "RecoveryController.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <memory>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using zyr_simulation::SimulatedNode;
using zyr_simulation::SimulatedNodeOptions;
using zyr_top_api::DspErrorBlocks;
using zyr_top_api::ForceLoopMode;
using zyr_top_api::TxRequestedStatus;
using enum zyr_top_api::ModulationAndCoding;

/// A hop without fading: the far end sends 20 dBm, and with a path loss of 60 dB the level is -40 dBm.
class HopTest : public SimulationFixture
{
  protected:
    HopTest()
    {
        startNode({.pathLoss_dBTenths = 600, .fading_dBTenths = 0});
        configure(1);
    }

    static IRssiHandler& rssi() { return require<IRssiHandler>("IRssiHandler", 1); }

    static int level()
    {
        int value = 0;
        EXPECT_EQ(rssi().getRssi(value), 0U);
        return value;
    }

    static DspErrorBlocks blocks(bool reset = false)
    {
        DspErrorBlocks record;
        EXPECT_EQ(dspStatus(1).getErrorBlocks(record, reset), 0U);
        return record;
    }

    struct Lowest
    {
        ModulationAndCoding rx{UNDEFINED};
        ModulationAndCoding tx{UNDEFINED};
    };

    static Lowest lowest(bool reset)
    {
        Lowest result;
        EXPECT_EQ(acm(1).getLowestModulationAndCode(result.rx, result.tx, reset), 0U);
        return result;
    }
};

TEST_F(HopTest, levelFallsWithThePathLoss)
{
    EXPECT_EQ(level(), -400);
    node().setPathLoss_dBTenths(905);
    EXPECT_EQ(level(), -705);
}

TEST_F(HopTest, snirIsTheLevelAboveTheNoiseOfTheChannelSpacing)
{
    node().setPathLoss_dBTenths(905);
    EXPECT_EQ(dspStatus(1).getSnir(), -200) << "noise floor of 56 MHz is -90.5 dBm";
    configure(1, 101);
    EXPECT_EQ(dspStatus(1).getSnir(), -260) << "noise floor of 14 MHz is -96.5 dBm";
    node().setPathLoss_dBTenths(600);
    EXPECT_EQ(dspStatus(1).getSnir(), -450) << "the ceiling";
}

TEST_F(HopTest, modulationFollowsTheSnirWithinTheRange)
{
    transmit(1, 0, 100);
    EXPECT_EQ(acm(1).getCurrentRxModulationAndCode(), QAM_4096_LIGHT);
    EXPECT_EQ(acm(1).getCurrentTxModulationAndCode(), QAM_4096_LIGHT);
    node().setPathLoss_dBTenths(905);
    EXPECT_EQ(acm(1).getCurrentRxModulationAndCode(), QAM_64);
    EXPECT_EQ(acm(1).getCurrentTxModulationAndCode(), QAM_4_LIGHT) << "10 dBm less than the far end";
    configure(1, 103, QAM_4_STRONG, QAM_16);
    EXPECT_EQ(acm(1).getCurrentRxModulationAndCode(), QAM_16);
}

TEST_F(HopTest, modulationIsTheLeastWhileAcmIsMutedOrOff)
{
    EXPECT_EQ(acm(1).muteAcm(), 0U);
    EXPECT_EQ(acm(1).getCurrentRxModulationAndCode(), QAM_4_STRONG);
    EXPECT_EQ(acm(1).restoreAcm(), 0U);
    EXPECT_EQ(acm(1).getCurrentRxModulationAndCode(), QAM_4096_LIGHT);
    EXPECT_EQ(acm(1).enableAcm(false), 0U);
    EXPECT_EQ(acm(1).getCurrentRxModulationAndCode(), QAM_4_STRONG);
}

TEST_F(HopTest, nothingIsSentWithoutTransmitterOrWithATestSignal)
{
    EXPECT_EQ(acm(1).getCurrentTxModulationAndCode(), UNDEFINED);
    transmit(1, 0, 100);
    EXPECT_EQ(acm(1).getCurrentTxModulationAndCode(), QAM_4096_LIGHT);
    EXPECT_EQ(dspChannel(1).setDspTxMode(bcm::types::ModemChain::Main, zyr_top_api::eDspATxModeOneTone, 0, 5),
              0U);
    EXPECT_EQ(acm(1).getCurrentTxModulationAndCode(), UNDEFINED);
    EXPECT_EQ(dspChannel(1).setDspTxMode(bcm::types::ModemChain::Main, zyr_top_api::eDspATxModeNormal, 0, 0),
              0U);
    acm(1).disableModulation();
    EXPECT_EQ(acm(1).getCurrentTxModulationAndCode(), UNDEFINED);
    acm(1).enableModulation();
    EXPECT_EQ(acm(1).getCurrentTxModulationAndCode(), QAM_4096_LIGHT);
}

TEST_F(HopTest, lowestModulationIsKeptUntilItIsReset)
{
    transmit(1, 0, 100);
    node().setPathLoss_dBTenths(905);
    node().setPathLoss_dBTenths(600);
    EXPECT_EQ(lowest(false).rx, QAM_64);
    EXPECT_EQ(lowest(true).tx, QAM_4_LIGHT);
    EXPECT_EQ(lowest(false).rx, QAM_4096_LIGHT);
    EXPECT_EQ(lowest(false).tx, QAM_4096_LIGHT);
}

TEST_F(HopTest, lowestLevelAndSnirAreKeptUntilTheyAreReset)
{
    rssi().getRssiMin(true);
    dspStatus(1).getLowestSnir(true);
    node().setPathLoss_dBTenths(905);
    node().setPathLoss_dBTenths(600);
    EXPECT_EQ(rssi().getRssiMin(false), -705);
    EXPECT_EQ(rssi().getRssiMin(true), -705);
    EXPECT_EQ(rssi().getRssiMin(false), -400);
    EXPECT_EQ(dspStatus(1).getLowestSnir(true), -200);
    EXPECT_EQ(dspStatus(1).getLowestSnir(false), -450);
}

TEST_F(HopTest, linkIsUpAsLongAsTheLeastModulationHasItsSnir)
{
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(dspStatus(1).getRxLockedCounter(), 1);
    node().setPathLoss_dBTenths(1050);
    EXPECT_TRUE(dspStatus(1).isLinkUp()) << "5.5 dB, as 4QAM strong needs";
    node().setPathLoss_dBTenths(1051);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    EXPECT_EQ(acm(1).getCurrentRxModulationAndCode(), UNDEFINED);
    EXPECT_EQ(alarms(), "LinkDown 1 active 1\n");
    node().setPathLoss_dBTenths(600);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(dspStatus(1).getRxLockedCounter(), 2);
    EXPECT_EQ(alarms(), "LinkDown 1 inactive 1\n");
}

TEST_F(HopTest, linkGoesDownWithTheFarEndAndWithTheRadio)
{
    node().setFarEndTransmits(false);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    EXPECT_EQ(level(), -990);
    EXPECT_EQ(dspStatus(1).getSnir(), 0);
    node().setFarEndTransmits(true);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    node().setRadioAvailable(1, false);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
}

TEST_F(HopTest, channelThatIsNotConfiguredHasNoLink)
{
    EXPECT_FALSE(dspStatus(2).isLinkUp());
    time().advance(10s);
    EXPECT_EQ(alarms(), "");
}

TEST_F(HopTest, blocksAreCountedWhileTheLinkIsUp)
{
    blocks(true);
    time().advance(10s);
    const auto counts = blocks();
    EXPECT_EQ(counts.backgroundBlocks, 10'000);
    EXPECT_EQ(counts.erroredBlocks, 0);
    EXPECT_EQ(counts.totalBytes, 2'000'000);
    EXPECT_EQ(counts.errorBytes, 0);
    node().setFarEndTransmits(false);
    time().advance(10s);
    EXPECT_EQ(blocks().backgroundBlocks, 10'000);
}

TEST_F(HopTest, blocksComeErroredWhenTheSnirIsScarce)
{
    node().setPathLoss_dBTenths(902);
    EXPECT_EQ(acm(1).getCurrentRxModulationAndCode(), QAM_64_LIGHT) << "needs 20.2 dB of 20.3";
    blocks(true);
    time().advance(10s);
    EXPECT_EQ(blocks().erroredBlocks, 180);
    EXPECT_EQ(blocks().errorBytes, 36'000);
    EXPECT_EQ(dspStatus(1).getEbSinceLastRxLock(), 180);
    node().setPathLoss_dBTenths(600);
    time().advance(10s);
    EXPECT_EQ(blocks(true).erroredBlocks, 180);
    EXPECT_EQ(blocks().erroredBlocks, 0);
    EXPECT_EQ(dspStatus(1).getEbSinceLastRxLock(), 180) << "not reset with the counters";
    node().setFarEndTransmits(false);
    node().setFarEndTransmits(true);
    EXPECT_EQ(dspStatus(1).getEbSinceLastRxLock(), 0);
}

TEST_F(HopTest, erroredBlocksAreInjectedForSomeCycles)
{
    blocks(true);
    int cycles = 0;
    dspStatus(1).injectErrorBlocks(true, 3, 50);
    EXPECT_TRUE(dspStatus(1).getInjectErrorBlocksData(cycles));
    EXPECT_EQ(cycles, 3);
    time().advance(1500ms);
    EXPECT_TRUE(dspStatus(1).getInjectErrorBlocksData(cycles));
    EXPECT_EQ(cycles, 2);
    time().advance(10s);
    EXPECT_FALSE(dspStatus(1).getInjectErrorBlocksData(cycles));
    EXPECT_EQ(cycles, 0);
    EXPECT_EQ(blocks().erroredBlocks, 1500);
    EXPECT_EQ(blocks().backgroundBlocks, 11'500);
}

TEST_F(HopTest, stoppedInjectionInjectsNothing)
{
    blocks(true);
    int cycles = 7;
    dspStatus(1).injectErrorBlocks(true, 3, 50);
    dspStatus(1).injectErrorBlocks(false, 3, 50);
    EXPECT_FALSE(dspStatus(1).getInjectErrorBlocksData(cycles));
    time().advance(3s);
    EXPECT_EQ(blocks().erroredBlocks, 0);
}

TEST_F(HopTest, powerReachesTheFarEndsTargetWithinTheWindow)
{
    transmit(1, 0, 200, -500);
    EXPECT_EQ(power(1).getReportedOutputPower(), 100) << "-50 dBm behind 60 dB";
    node().setPathLoss_dBTenths(650);
    EXPECT_EQ(power(1).getReportedOutputPower(), 150);
    node().setPathLoss_dBTenths(900);
    EXPECT_EQ(power(1).getReportedOutputPower(), 200);
    node().setPathLoss_dBTenths(100);
    EXPECT_EQ(power(1).getReportedOutputPower(), 0);
}

TEST_F(HopTest, smallChangesOfThePathAreLetPassInNormalOperationOnly)
{
    const auto setMode = [](ForceLoopMode mode) {
        EXPECT_EQ(power(1).overridePowerSettings(false, TxRequestedStatus::On, false, -500, false, 0, 200,
                                                 false, mode),
                  0U);
    };
    transmit(1, 0, 200, -500);
    node().setPathLoss_dBTenths(610);
    EXPECT_EQ(power(1).getReportedOutputPower(), 100);
    node().setPathLoss_dBTenths(590);
    EXPECT_EQ(power(1).getReportedOutputPower(), 100);
    node().setPathLoss_dBTenths(611);
    EXPECT_EQ(power(1).getReportedOutputPower(), 111);
    transmit(1, 0, 200, -499);
    EXPECT_EQ(power(1).getReportedOutputPower(), 112) << "another target is followed at once";
    setMode(ForceLoopMode::NormalOperationNoHysteresis);
    node().setPathLoss_dBTenths(612);
    EXPECT_EQ(power(1).getReportedOutputPower(), 112);
    setMode(ForceLoopMode::ClosedLoop);
    node().setPathLoss_dBTenths(613);
    EXPECT_EQ(power(1).getReportedOutputPower(), 113);
}

TEST_F(HopTest, openLoopSendsTheUpperEndOfTheWindow)
{
    transmit(1, 0, 200, -500);
    EXPECT_EQ(power(1).overridePowerSettings(false, TxRequestedStatus::On, false, -500, false, 0, 200, false,
                                             ForceLoopMode::OpenLoop),
              0U);
    EXPECT_EQ(power(1).getReportedOutputPower(), 200);
}

TEST_F(HopTest, powerStaysWithinTheRadioUnlessLimitsAreIgnored)
{
    transmit(1, 0, 400);
    EXPECT_EQ(power(1).getReportedOutputPower(), 250) << "26 dBm, less 1 dB for the two bits of 4QAM";
    auto& calculator = require<IOutputPowerCalculator>("IOutputPowerCalculator", 1);
    EXPECT_EQ(calculator.setPowerCutBack(30), 0U);
    EXPECT_EQ(power(1).getReportedOutputPower(), 220);
    EXPECT_EQ(power(1).overridePowerSettings(false, TxRequestedStatus::On, false, 500, false, 0, 400, true,
                                             ForceLoopMode::NormalOperation),
              0U);
    EXPECT_EQ(power(1).getReportedOutputPower(), 400);
}

TEST_F(HopTest, absurdSettingsStayWithinTheScale)
{
    constexpr int greatest = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    transmit(1, least, greatest, greatest);
    EXPECT_EQ(power(1).getReportedOutputPower(), 250);
    transmit(1, least, least, least);
    EXPECT_EQ(power(1).getReportedOutputPower(), -990);
    node().setPathLoss_dBTenths(least);
    EXPECT_EQ(level(), 1000);
    node().setPathLoss_dBTenths(greatest);
    EXPECT_EQ(level(), -990);
}

TEST_F(HopTest, latencyFollowsTheHopLengthWhileTheLinkIsUp)
{
    auto& pps = require<nord::zyr::pps::IPpsController>("IPpsController1");
    unsigned latency = 0;
    EXPECT_EQ(pps.getHopLengthLatency(latency), 0U);
    EXPECT_EQ(latency, 26'678U) << "5 km and 10 us for the modems";
    std::uint32_t measured = 0;
    EXPECT_EQ(dspChannel(1).ppsHopLengthTimeGet(measured), 0U);
    EXPECT_EQ(measured, 26'678U);
    node().setFarEndTransmits(false);
    EXPECT_EQ(pps.getHopLengthLatency(latency), 0U);
    EXPECT_EQ(latency, 0U);
    EXPECT_EQ(dspChannel(1).ppsHopLengthTimeGet(measured), 0x8000U);
}

TEST_F(HopTest, ppfLocksWithTheLink)
{
    bool locked = false;
    EXPECT_EQ(dspChannel(1).getPpfLockStatus(locked), 0U);
    EXPECT_TRUE(locked);
    node().setFarEndTransmits(false);
    EXPECT_EQ(dspChannel(1).getPpfLockStatus(locked), 0U);
    EXPECT_FALSE(locked);
}

TEST_F(HopTest, thresholdIsTheLevelThatTheModulationNeeds)
{
    unsigned phyMode = 0;
    int threshold = 0;
    EXPECT_EQ(acm(1).getPhyMode(QAM_4, phyMode), 0U);
    EXPECT_EQ(rssi().calculateRssiThreshold(phyMode, threshold), 0U);
    EXPECT_EQ(threshold, -835) << "7 dB above the noise of 56 MHz";
    EXPECT_EQ(rssi().setRssiThreshold(threshold), 0U);
    EXPECT_EQ(node().channel(1).receiver.threshold, -835);
    EXPECT_EQ(rssi().calculateRssiThreshold(53, threshold), 0x8000U);
}

TEST_F(HopTest, injectedFailuresHitTheNextAccessesToTheStatus)
{
    dspStatus(1).injectComError(0x800C, 1);
    DspErrorBlocks record;
    EXPECT_EQ(dspStatus(1).getErrorBlocks(record, false), 0x800CU);
    EXPECT_EQ(dspStatus(1).getErrorBlocks(record, false), 0U);
}

/// The levels of both channels over two minutes, on a node of its own.
class FadingTest : public SimulationFixture
{
  protected:
    FadingTest() { endNode(); }

    static std::vector<int> levels(const SimulatedNodeOptions& options)
    {
        zyr_platform::VirtualTime time;
        SimulatedNode node(options, time);
        configure(1);
        configure(2);
        std::vector<int> result;
        for (int second = 0; second < 120; ++second) {
            time.advance(1s);
            for (unsigned channel = 1; channel <= 2; ++channel) {
                int value = 0;
                EXPECT_EQ(require<IRssiHandler>("IRssiHandler", channel).getRssi(value), 0U);
                result.push_back(value);
            }
        }
        return result;
    }
};

TEST_F(FadingTest, sameSeedGivesTheSameLevels)
{
    const SimulatedNodeOptions options{.seed = 7, .fading_dBTenths = 50};
    EXPECT_EQ(levels(options), levels(options));
}

TEST_F(FadingTest, otherSeedGivesOtherLevels)
{
    EXPECT_NE(levels({.seed = 7, .fading_dBTenths = 50}), levels({.seed = 8, .fading_dBTenths = 50}));
}

TEST_F(FadingTest, levelsMoveWithinTheAmplitude)
{
    const auto all = levels({.pathLoss_dBTenths = 600, .fading_dBTenths = 50});
    const auto [least, greatest] = std::ranges::minmax(all);
    EXPECT_GE(least, -450);
    EXPECT_LE(greatest, -350);
    EXPECT_GT(greatest - least, 50);
}

TEST_F(FadingTest, deepFadingBreaksTheLinkAgainAndAgain)
{
    zyr_platform::VirtualTime time;
    SimulatedNode node({.pathLoss_dBTenths = 1000, .fading_dBTenths = 200}, time);
    configure(1);
    time.advance(10min);
    const auto events = node.snapshot().alarms;
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].eventName, "LinkDown");
    EXPECT_GT(events[0].numberOfTimesEventHasBeenActive, 3);
}

} // namespace
