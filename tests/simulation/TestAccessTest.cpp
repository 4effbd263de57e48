#include "IAtpcController.h"
#include "IIfLoopDriver.h"
#include "ILoopController.h"
#include "IOutputPowerHandler.h"
#include "IRauLatencyCalculator.h"
#include "IRouteUpdater.h"
#include "ISpaceDiversityCombinerController.h"
#include "ISpcSimulator.h"
#include "ITapsController.h"
#include "ITapsControllerLog.h"
#include "RecoveryController.h"
#include "SimulationFixture.h"
#include "StateFile.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using nord::zyr::loops::ILoopController;
using zyr_top_api::RouteType;
using zyr_top_api::SdcPath;
using zyr_top_api::SdcStatus;
using zyr_top_api::TapsLogData;
using enum zyr_top_api::ModulationAndCoding;

class TestAccessTest : public SimulationFixture
{
  protected:
    static ILoopController& loops() { return require<ILoopController>("ILoopController"); }
    static ITapsControllerLog& tapsLog() { return require<ITapsControllerLog>("ITapsControllerLog", 1); }
    static IOutputPowerHandler& chain() { return require<IOutputPowerHandler>("IOutputPowerHandler.1"); }
    static ISpaceDiversityCombinerController& combiner()
    {
        return require<ISpaceDiversityCombinerController>("ISpaceDiversityCombinerController", 1);
    }

    /// The power at the lowest and at the highest rate that was needed. It must not fall in between.
    static std::string lowestAndHighest(const std::map<std::int32_t, std::int32_t>& powersByRate)
    {
        const auto falls = [](const auto& lower, const auto& higher) { return lower.second > higher.second; };
        EXPECT_EQ(std::ranges::adjacent_find(powersByRate, falls), powersByRate.end());
        const auto shown = [](const auto& row) {
            return std::to_string(row.second) + " at " + std::to_string(row.first);
        };
        return shown(*powersByRate.begin()) + ", " + shown(*powersByRate.rbegin());
    }

    /// All loops with their state, one in a line.
    static std::string loopStates()
    {
        std::vector<zyr_top_api::LoopStatePair> states;
        EXPECT_EQ(loops().getLoops(states), 0U);
        std::string text;
        for (const auto& state : states) {
            text += state.loopName + (state.closed ? " closed\n" : " open\n");
        }
        return text;
    }
};

TEST_F(TestAccessTest, loopsAreSetByNameAndCutTheFarEndOff)
{
    configure(1);
    EXPECT_EQ(loopStates(), "IfLoop1 open\nRfLoop1 open\nIfLoop2 open\nRfLoop2 open\n");
    EXPECT_EQ(loops().setLoop("RfLoop1", true), 0U);
    EXPECT_EQ(loopStates(), "IfLoop1 open\nRfLoop1 closed\nIfLoop2 open\nRfLoop2 open\n");
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    EXPECT_EQ(loops().setLoop("RfLoop1", false), 0U);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(loops().setLoop("RfLoop3", true), 0x8008U);
    startNode({.channels = 1, .radioType = 3});
    EXPECT_EQ(loopStates(), "IfLoop1 open\n");
    EXPECT_EQ(loops().setLoop("RfLoop1", true), 0x8008U);
}

TEST_F(TestAccessTest, ifLoopIsTheSameForDriverAndController)
{
    auto& driver = require<IIfLoopDriver>("IIfLoopDriver", 2);
    unsigned char loop = 9;
    EXPECT_EQ(driver.getIfLoop(loop), 0);
    EXPECT_EQ(loop, 0);
    EXPECT_EQ(driver.setIfLoop(true), 0);
    EXPECT_EQ(loopStates(), "IfLoop1 open\nRfLoop1 open\nIfLoop2 closed\nRfLoop2 open\n");
    EXPECT_EQ(driver.getIfLoop(loop), 0);
    EXPECT_EQ(loop, 1);
}

TEST_F(TestAccessTest, routesAreKeptByTypeAndChannel)
{
    auto& updater = require<IRouteUpdater>("IRouteUpdater");
    EXPECT_EQ(updater.updateRoute({{1, 7}}, RouteType::RcchToPhyRccMap), 0U);
    EXPECT_EQ(updater.updateRoute({{1, 8}}, RouteType::RcchToRfPortMap), 0U);
    EXPECT_EQ(updater.updateRoute({{1, 9}}, RouteType::RcchToPhyRccMap), 0U);
    const auto routes = node().snapshot().routes;
    ASSERT_EQ(routes.size(), 2U);
    EXPECT_EQ(routes.at({RouteType::RcchToPhyRccMap, 1}), 9U);
    EXPECT_EQ(routes.at({RouteType::RcchToRfPortMap, 1}), 8U);
}

TEST_F(TestAccessTest, tapsLogTakesASampleInEachPeriod)
{
    configure(1);
    transmit(1, 50, 100);
    TapsLogData sample;
    EXPECT_EQ(tapsLog().readSample(sample), 0x8000U) << "nothing was logged";
    EXPECT_EQ(tapsLog().setLogPeriod(0), 0x8000U);
    EXPECT_EQ(tapsLog().setLogPeriod(5), 0U);
    EXPECT_EQ(tapsLog().startLog(), 0U);
    EXPECT_TRUE(tapsLog().isLogActive());
    time().advance(14s);
    EXPECT_EQ(tapsLog().stopLog(), 0U);
    time().advance(1min);
    EXPECT_EQ(tapsLog().readSample(sample), 0U);
    EXPECT_EQ(sample.samplesRemaining, 2);
    EXPECT_EQ(sample.timeStamp, "300 ms");
    EXPECT_EQ(sample.minPowerOut, 50);
    EXPECT_EQ(sample.maxPowerOut, 100);
    EXPECT_TRUE(sample.atpcEnabled);
    EXPECT_EQ(sample.dspMaxRateMbit, 571);
    EXPECT_EQ(sample.dspMinRateMbit, 95);
    EXPECT_EQ(tapsLog().readSample(sample), 0U);
    EXPECT_EQ(sample.timeStamp, "5300 ms");
    unsigned period = 0;
    EXPECT_EQ(tapsLog().getLogPeriod(period), 0U);
    EXPECT_EQ(period, 5U);
    EXPECT_EQ(tapsLog().dumpLogToFile(), 0x8000U) << "there is no folder for it";
    EXPECT_EQ(tapsLog().startLog(), 0U);
    EXPECT_EQ(tapsLog().readSample(sample), 0U);
    EXPECT_EQ(sample.samplesRemaining, 0) << "the earlier samples are dropped";
}

TEST_F(TestAccessTest, tapsLogIsDumpedIntoTheNodesFolder)
{
    const TemporaryFolder folder;
    startNode({.fading_dBTenths = 0, .stateFolder = folder.path("")});
    configure(1);
    transmit(1, 50, 100);
    EXPECT_EQ(tapsLog().startLog(), 0U);
    time().advance(1s);
    for (int dump = 0; dump < 2; ++dump) {
        EXPECT_EQ(tapsLog().dumpLogToFile(), 0U);
        EXPECT_EQ(contentOf(folder.path("taps-log-1.csv")),
                  "timeStamp,minPowerIn,maxPowerIn,dspRateMebit,dspRateMbit,dspMinRateMbit,dspMaxRateMbit,"
                  "currentModValue,idleRate,idleRateThreshold,rateNeeded,rateMin,deltaPower,minPowerOut,"
                  "maxPowerOut,atpcEnabled\n"
                  "300 ms,50,100,544,571,95,571,122,103,57,468,95,0,50,100,true\n"
                  "1300 ms,50,100,544,571,95,571,122,110,57,461,95,0,50,100,true\n");
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path("taps-log-1.csv.new")));
    TapsLogData sample;
    EXPECT_EQ(tapsLog().readSample(sample), 0U) << "they go on waiting";
    std::filesystem::create_directory(folder.path("taps-log-2.csv"));
    EXPECT_EQ(require<ITapsControllerLog>("ITapsControllerLog", 2).dumpLogToFile(), 0x8000U);
    node().faults().inject({"ITapsControllerLog", "dumpLogToFile", 1, 0x8001, 1});
    EXPECT_EQ(tapsLog().dumpLogToFile(), 0x8001U);
    EXPECT_THROW(startNode({.stateFolder = folder.path("taps-log-1.csv")}), std::invalid_argument);
    EXPECT_THROW(startNode({.stateFolder = folder.path("nothing")}), std::invalid_argument);
}

TEST_F(TestAccessTest, filesOfTheNodeStayInItsFolder)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path("state"));
    const std::string state = folder.path("state");
    for (const char* const name : {"", "..", "../out", "sub/file", "/tmp/zyr", "a..b"}) {
        EXPECT_FALSE(zyr_simulation::writeStateFile(state, name, "text")) << name;
    }
    EXPECT_FALSE(zyr_simulation::writeStateFile("", "file", "text"));
    EXPECT_TRUE(std::filesystem::is_empty(state));

    // Links that lie there lead nowhere.
    std::filesystem::create_symlink(folder.path("out"), folder.path("state/file"));
    std::filesystem::create_symlink(folder.path("out"), folder.path("state/file.new"));
    EXPECT_TRUE(zyr_simulation::writeStateFile(state, "file", "text"));
    EXPECT_FALSE(std::filesystem::exists(folder.path("out")));
    EXPECT_EQ(contentOf(folder.path("state/file")), "text");
}

TEST_F(TestAccessTest, tapsLetsThePowerFollowTheRateThatIsNeeded)
{
    startNode({.fading_dBTenths = 0});
    configure(1);
    transmit(1, 0, 150);
    auto& taps = require<ITapsController>("ITapsController", 1);
    const auto powersByNeededRate = [&] {
        std::map<std::int32_t, std::int32_t> powers;
        EXPECT_EQ(tapsLog().startLog(), 0U);
        for (int second = 0; second < 120; ++second) {
            TapsLogData sample;
            EXPECT_EQ(tapsLog().readSample(sample), 0U);
            EXPECT_EQ(power(1).getReportedOutputPower(), sample.maxPowerOut);
            EXPECT_EQ(sample.maxPowerOut, 150 + sample.deltaPower);
            EXPECT_EQ(sample.idleRate, sample.dspMaxRateMbit - sample.rateNeeded);
            powers[sample.rateNeeded] = sample.maxPowerOut;
            time().advance(1s);
        }
        return powers;
    };
    EXPECT_EQ(lowestAndHighest(powersByNeededRate()), "150 at 57, 150 at 514");
    EXPECT_EQ(taps.setTapsEnable(true), 0U);
    EXPECT_EQ(lowestAndHighest(powersByNeededRate()), "0 at 57, 93 at 514");
    EXPECT_EQ(taps.setIdleRateThresholdFactor(5.0), 0U);
    EXPECT_EQ(lowestAndHighest(powersByNeededRate()), "0 at 57, 150 at 514")
        << "half of the rate has to be idle";
    EXPECT_EQ(taps.setIdleRateThresholdFactor(-1e300), 0U);
    EXPECT_EQ(taps.setIdleRateOffset(1'000'000, 1), 0U);
    EXPECT_EQ(lowestAndHighest(powersByNeededRate()), "123 at 571, 123 at 571")
        << "all of the rate is needed; a stronger code carries it too";
    EXPECT_EQ(taps.setIdleRateOffset(-1'000'000, 1), 0U);
    EXPECT_EQ(lowestAndHighest(powersByNeededRate()), "0 at 0, 0 at 0") << "nothing is needed";
}

TEST_F(TestAccessTest, simulatorKeepsTheObjectUntilItIsReleased)
{
    auto& simulator = require<ISpcSimulator>("ISpcSimulator", 1);
    auto& atpc = require<IAtpcController>("IAtpcController", 1);
    EXPECT_NE(atpc.getSimulatedObject(), nullptr);
    EXPECT_NE(atpc.getSimulatedObject(), require<IAtpcController>("IAtpcController", 2).getSimulatedObject());
    EXPECT_EQ(simulator.simulate(3, 0, 1, 0, 1), 0x8000U);
    EXPECT_EQ(simulator.simulate(0, -800, -300, -800, 6), 0U);
    EXPECT_FALSE(simulator.isSimulating());
    simulator.setSimulated(atpc.getSimulatedObject(), true);
    EXPECT_EQ(simulator.simulate(2, -100000, -100000, -100000.0, -100000.0), 0U);
    EXPECT_TRUE(simulator.isSimulating());
    EXPECT_EQ(simulator.getSimulatedObject(), atpc.getSimulatedObject());
    atpc.release(simulator.getSimulatedObject());
    EXPECT_FALSE(simulator.isSimulating());
    simulator.setSimulated(atpc.getSimulatedObject(), false);
    EXPECT_EQ(simulator.getSimulatedObject(), nullptr);
}

TEST_F(TestAccessTest, atpcKeepsItsGainsAndKnowsTheTarget)
{
    auto& atpc = require<IAtpcController>("IAtpcController", 1);
    atpc.setGain(3, 1200.0);
    EXPECT_EQ(atpc.getGain(3), 1200.0);
    EXPECT_EQ(atpc.getGain(4), 0.0);
    transmit(1, 0, 100, -450);
    EXPECT_EQ(atpc.getTargetInputPower(), -450);
}

TEST_F(TestAccessTest, transmitterChainKeepsWhatATestSets)
{
    std::int32_t value = 0;
    EXPECT_EQ(chain().setTxRfGain(301), 0xA100U);
    EXPECT_EQ(chain().setTxRfGain(120), 0U);
    EXPECT_EQ(chain().getTxRfGain(value), 0U);
    EXPECT_EQ(value, 120);
    EXPECT_EQ(chain().getReducedGain(6, value), 0U);
    EXPECT_EQ(value, 60);
    EXPECT_EQ(chain().getReducedGain(0, value), 0xA100U);
    EXPECT_EQ(chain().getReducedGain(7, value), 0xA100U);
    EXPECT_FALSE(chain().isBarOn());
    EXPECT_EQ(chain().setBarOn(true), 0U);
    EXPECT_TRUE(chain().isBarOn());
    EXPECT_FALSE(chain().isTxIfBarOn());
    EXPECT_EQ(chain().setTxIfBarOn(true), 0U);
    EXPECT_TRUE(chain().isTxIfBarOn());
    EXPECT_EQ(chain().setTxIfOutputPower(-48), 0U);
    EXPECT_EQ(chain().getTxIfOutputPower(value), 0U);
    EXPECT_EQ(value, -48);
    EXPECT_EQ(chain().getDacValue(value), 0U);
    EXPECT_EQ(value, 2000);
    EXPECT_EQ(chain().setTxIfOutputPower(2'000'000'000), 0U);
    EXPECT_EQ(chain().getDacValue(value), 0U);
    EXPECT_EQ(value, 4095);
}

TEST_F(TestAccessTest, detectorsSeeThePowerThatIsSent)
{
    configure(1);
    transmit(1, 0, 90);
    std::int32_t detected = 0;
    bool usingHigh = true;
    std::int32_t toHigh = 0;
    std::int32_t toLow = 0;
    EXPECT_EQ(chain().testGetDetectedPower(detected), 0U);
    EXPECT_EQ(detected, 90);
    EXPECT_EQ(chain().testGetDetectorInUse(usingHigh, toHigh, toLow), 0U);
    EXPECT_FALSE(usingHigh);
    EXPECT_EQ(toHigh, 100);
    EXPECT_EQ(toLow, 80);
    transmit(1, 0, 100);
    EXPECT_EQ(chain().testGetDetectorInUse(usingHigh, toHigh, toLow), 0U);
    EXPECT_TRUE(usingHigh);
    zyr_top_api::TxDetectorData data;
    data.highDetector = 1;
    EXPECT_EQ(chain().testGetDetectorData(data), 0U);
    EXPECT_EQ(data.highDetector, 1);
    EXPECT_EQ(data.detectedPower, 100);
    EXPECT_EQ(data.adcValue, 2148);
}

TEST_F(TestAccessTest, radioWithoutCombinerAnswersNothing)
{
    EXPECT_EQ(combiner().setSdcEnable(true), 0x8000U);
    EXPECT_EQ(combiner().getSdcOperStatus(), SdcStatus::NoAnswer);
    EXPECT_EQ(combiner().getSdcDadeStatus(), SdcStatus::NoAnswer);
    EXPECT_EQ(combiner().getSdcActualPath(), SdcPath::Invalid);
}

TEST_F(TestAccessTest, combinerTakesItsTime)
{
    startNode({.radioType = 3});
    EXPECT_EQ(combiner().getSdcOperStatus(), SdcStatus::Inactive);
    EXPECT_EQ(combiner().setSdcEnable(true), 0U);
    EXPECT_EQ(combiner().getSdcOperStatus(), SdcStatus::InProgress);
    time().advance(500ms);
    EXPECT_EQ(combiner().getSdcOperStatus(), SdcStatus::Active);
    EXPECT_EQ(combiner().setDadeCalibration(true), 0U);
    EXPECT_EQ(combiner().getSdcDadeStatus(), SdcStatus::InProgress);
    EXPECT_EQ(combiner().getSdcDadeDelay(), 0);
    time().advance(2s);
    EXPECT_EQ(combiner().getSdcDadeStatus(), SdcStatus::Active);
    EXPECT_EQ(combiner().getSdcDadeDelay(), 12);
    EXPECT_EQ(combiner().setSdcEnable(false), 0U);
    EXPECT_EQ(combiner().getSdcOperStatus(), SdcStatus::Inactive);
}

TEST_F(TestAccessTest, combinerKeepsAnOlderCalibrationWhenANewOneIsAborted)
{
    startNode({.radioType = 3});
    EXPECT_EQ(combiner().setDadeCalibration(true), 0U);
    EXPECT_EQ(combiner().setDadeCalibration(false), 0U);
    EXPECT_EQ(combiner().getSdcDadeStatus(), SdcStatus::Inactive);
    time().advance(2s);
    EXPECT_EQ(combiner().getSdcDadeStatus(), SdcStatus::Inactive);
    EXPECT_EQ(combiner().setDadeCalibration(true), 0U);
    time().advance(2s);
    EXPECT_EQ(combiner().setDadeCalibration(true), 0U);
    EXPECT_EQ(combiner().getSdcDadeStatus(), SdcStatus::InProgress);
    EXPECT_EQ(combiner().setDadeCalibration(false), 0U);
    EXPECT_EQ(combiner().getSdcDadeStatus(), SdcStatus::Active);
    EXPECT_EQ(combiner().getSdcDadeDelay(), 12);
}

TEST_F(TestAccessTest, combinerGainsOnTheAutomaticPathOnly)
{
    startNode({.radioType = 3, .fading_dBTenths = 0});
    configure(1, 103, ModulationAndCoding::QAM_4_STRONG, ModulationAndCoding::QAM_4096_LIGHT, 5'930'000,
              6'182'000);
    const auto gain = [] {
        char main = 'x';
        char diversity = 'x';
        std::int32_t powerMain = 0;
        std::int32_t powerDiversity = 0;
        std::int32_t value = -1;
        combiner().getSdcSignalStatus(main, diversity, powerMain, powerDiversity, value);
        EXPECT_EQ(main, '0');
        EXPECT_EQ(diversity, '0');
        EXPECT_EQ(powerMain - powerDiversity, 15);
        return value;
    };
    EXPECT_EQ(combiner().setSdcEnable(true), 0U);
    time().advance(500ms);
    EXPECT_EQ(gain(), 0);
    EXPECT_EQ(combiner().setSdcPath(SdcPath::Auto), 0U);
    EXPECT_EQ(combiner().getSdcActualPath(), SdcPath::Auto);
    EXPECT_EQ(gain(), 6) << "not calibrated";
    EXPECT_EQ(combiner().setDadeCalibration(true), 0U);
    time().advance(2s);
    EXPECT_EQ(gain(), 18);
    EXPECT_EQ(combiner().setSdcPath(SdcPath::Invalid), 0x8000U);
    EXPECT_EQ(combiner().getSdcActualPath(), SdcPath::Auto);
    EXPECT_EQ(combiner().setRlConfiguration(zyr_top_api::Modulation::QAM_256, 28, true), 0U);
    EXPECT_EQ(node().channel(1).sdc.spacingCode, 28);
}

} // namespace
