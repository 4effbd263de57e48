#include "DDevIo.h"
#include "DriverCalls.h"
#include "IBasebandSdcController.h"
#include "ICcdpController.h"
#include "IIfLoopDriver.h"
#include "ILoopController.h"
#include "IMimoController.h"
#include "IOutputPowerCalculator.h"
#include "IOutputPowerHandler.h"
#include "IPpsController.h"
#include "IRauHandler.h"
#include "IRauLatencyCalculator.h"
#include "IRouteUpdater.h"
#include "IRssiHandler.h"
#include "ISpaceDiversityCombinerController.h"
#include "ISpcSimulator.h"
#include "ISpectrumDiagnosticsController.h"
#include "ITapsController.h"
#include "ITapsControllerLog.h"
#include "ITxIQImbalanceHandler.h"
#include "IZyrRleHandler.h"
#include "RecoveryController.h"
#include "SimulationFixture.h"
#include "SystemTimeApi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace
{

using namespace zyr_top_api;
using bcm::types::ModemChain;

constexpr std::uint32_t kOrdered = 0x8765;

/// Every operation that can be made to fail, called once on channel 1, by its name. An operation that answers
/// a flag counts as failed with the ordered code when it answers false.
class EveryFaultTest : public SimulationFixture
{
  protected:
    using Calls = std::map<std::string, std::function<std::uint32_t()>>;

    static std::uint32_t flag(bool success) { return success ? 0 : kOrdered; }

    template <class Interface>
    static Interface& of(const std::string& name)
    {
        return require<Interface>(name, 1);
    }

    /// Arguments of operations whose results don't matter here.
    struct Scratch
    {
        int number{0};
        unsigned word{0};
        std::int16_t small{0};
        std::uint8_t byte{0};
        bool yes{false};
        std::string text{};
        std::vector<AlarmEvent> events{};
    };
    Scratch m{};

    Calls alarmCalls()
    {
        auto& handler = require<IAlarmHandlerTopApi>("IAlarmHandlerTopApi");
        return {{"getAlarms", [&] { return handler.getAlarms(m.events); }},
                {"getFastAlarms", [&] { return handler.getFastAlarms(m.events); }},
                {"releaseFastAlarmRequests", [&] { return handler.releaseFastAlarmRequests(); }},
                {"getAlarmsByOption", [&] { return handler.getAlarmsByOption(0, m.events); }},
                {"setAlarmEvents", [&] { return handler.setAlarmEvents({}); }}};
    }

    Calls acmCalls()
    {
        return {
            {"enableAcm", [] { return acm(1).enableAcm(true); }},
            {"muteAcm", [] { return acm(1).muteAcm(); }},
            {"restoreAcm", [] { return acm(1).restoreAcm(); }},
            {"setMinMaxModulationAndCode", [] { return acm(1).setMinMaxModulationAndCode({}, {}); }},
            {"getPhyMode", [this] { return acm(1).getPhyMode({}, m.word); }},
            {"isFarEndPmaxCapabilityDifferent", [] { return acm(1).isFarEndPmaxCapabilityDifferent({}); }},
            {"setFarEndPmaxCapability", [] { return acm(1).setFarEndPmaxCapability({}); }},
            {"syncAfterWarmRestart", [] { return acm(1).syncAfterWarmRestart(); }},
            {"getLowestModulationAndCode", [] {
                 ModulationAndCoding rx{};
                 ModulationAndCoding tx{};
                 return acm(1).getLowestModulationAndCode(rx, tx, false);
             }}};
    }

    static Calls systemPowerCalls()
    {
        return {
            {"setReferenceSec", [] { return power(1).setReferenceSec({}); }},
            {"setTemporaryPmaxCapability", [] { return power(1).setTemporaryPmaxCapability(); }},
            {"overrideTxPowerState", [] { return power(1).overrideTxPowerState({}); }},
            {"onTxFrequencyChanged", [] { return power(1).onTxFrequencyChanged(0); }},
            {"notifyRequestedPowerSettings",
             [] { return power(1).notifyRequestedPowerSettings(false, 0, 0); }},
            {"configurePowerSettings", [] { return power(1).configurePowerSettings({}, 0, 0, 0, 0, 1); }},
            {"setAdminRequestedTxPowerState", [] { return power(1).setAdminRequestedTxPowerState({}, 0); }},
            {"syncAfterWarmRestart", [] { return power(1).syncAfterWarmRestart(); }},
            {"prepareRadioRestart", [] { return power(1).prepareRadioRestart(); }},
            {"overridePowerSettings",
             [] { return power(1).overridePowerSettings(false, {}, false, 0, false, 0, 0, false, {}); }}};
    }

    static Calls calculatorCalls()
    {
        auto& calculator = of<IOutputPowerCalculator>("IOutputPowerCalculator");
        return {
            {"setPowerCutBack", [&] { return calculator.setPowerCutBack(0); }},
            {"setBooster", [&] { return calculator.setBooster(0, 0, 0, {}); }},
            {"setTemporaryMaxPowerCutback", [&] { return calculator.setTemporaryMaxPowerCutback(false, 0); }},
            {"getMaxOutputPower", [&] {
                 int least = 0;
                 std::map<ModulationAndCoding, int> greatest;
                 return calculator.getMaxOutputPower(101, {}, {}, {}, least, greatest);
             }}};
    }

    Calls hardwareCalls()
    {
        return {{"setRadioFrameId", [] { return hardware().setRadioFrameId(RadioChannel(1), 101, 1); }},
                {"getFrameUpdateMode", [this] { return hardware().getFrameUpdateMode(m.word); }},
                {"setFrameUpdateMode", [] { return hardware().setFrameUpdateMode(0); }},
                {"isXpicCapable", [this] { return hardware().isXpicCapable(101, m.yes); }},
                {"getConfigType",
                 [] {
                     FFConfigType type{};
                     return hardware().getConfigType(RadioChannel(1), 101, type);
                 }},
                {"getPerformanceProfileArray",
                 [] {
                     std::vector<std::int16_t> profile;
                     return hardware().getPerformanceProfileArray(1, 101, profile);
                 }},
                {"setRauCarrierAggregation", [] { return hardware().setRauCarrierAggregation(false); }}};
    }

    Calls ccdpCalls()
    {
        auto& ccdp = of<ICcdpController>("ICcdpController");
        return {{"setBar", [&] { return ccdp.setBar(false); }},
                {"forceXpic", [&] { return ccdp.forceXpic({}); }},
                {"xpicMute", [&] { return ccdp.xpicMute(false); }},
                {"getLinkType",
                 [&] {
                     LinkType linkType{};
                     return ccdp.getLinkType(linkType);
                 }},
                {"setPreamble", [&] { return ccdp.setPreamble({}); }},
                {"getPreamble",
                 [&] {
                     XpicMimoPreamble preamble{};
                     return ccdp.getPreamble(preamble);
                 }},
                {"xpicAcquireStart", [&] { return ccdp.xpicAcquireStart({}, {}); }},
                {"getXpicStatusStruct",
                 [&] {
                     XpicStatusStruct status;
                     return ccdp.getXpicStatusStruct(status);
                 }},
                {"start", [&] { return ccdp.start({}); }},
                {"stop", [&] { return ccdp.stop(); }},
                {"getXpi", [&] { return ccdp.getXpi(m.number); }},
                {"getState", [&] { return ccdp.getState(m.text); }}};
    }

    static Calls rauCalls()
    {
        auto& rau = of<IRauHandler>("IRauHandler");
        return {{"triggerRestart", [&] { return rau.triggerRestart(0); }},
                {"endRestart", [&] { return rau.endRestart(); }},
                {"setPowerSupplied", [&] { return rau.setPowerSupplied(1); }},
                {"setActiveSubBand", [&] { return rau.setActiveSubBand(0); }},
                {"setTxIfSwitch2T2R", [&] { return rau.setTxIfSwitch2T2R(0, 0); }},
                {"setPowerMode",
                 [&] {
                     return rau.setPowerMode({1, 0});
                 }},
                {"getPowerMode", [&] {
                     unsigned char mode = 0;
                     return rau.getPowerMode(1, mode);
                 }}};
    }

    static Calls sdcCalls()
    {
        auto& sdc = of<IBasebandSdcController>("IBasebandSdcController");
        return {{"start", [&] { return sdc.start(false); }},
                {"stop", [&] { return sdc.stop(); }},
                {"startDadeCalibration", [&] { return sdc.startDadeCalibration(); }},
                {"abortDadeCalibration", [&] { return sdc.abortDadeCalibration(); }},
                {"resetDadeCalibration", [&] { return sdc.resetDadeCalibration(); }},
                {"setDadeParams", [&] { return sdc.setDadeParams(0, 0); }},
                {"setChannels", [&] { return sdc.setChannels(true, true); }}};
    }

    static Calls tapsCalls()
    {
        auto& taps = of<ITapsController>("ITapsController");
        return {{"setTapsEnable", [&] { return taps.setTapsEnable(true); }},
                {"setIdleRateOffset", [&] { return taps.setIdleRateOffset(0, 1); }},
                {"setIdleRateThresholdFactor", [&] { return taps.setIdleRateThresholdFactor(1.0); }},
                {"setKvalue", [&] { return taps.setKvalue(0); }},
                {"setHrlbEnabled", [&] { return taps.setHrlbEnabled(true); }}};
    }

    Calls dspChannelCalls()
    {
        auto& api = dspChannel(1);
        return {
            {"getDspTxMode",
             [&] {
                 EDspATxMode mode{};
                 return api.getDspTxMode(ModemChain::Main, mode, m.number, m.number);
             }},
            {"setDspTxMode", [&] { return api.setDspTxMode(ModemChain::Main, {}, 0, 0); }},
            {"getPpfLockStatus", [&] { return api.getPpfLockStatus(m.yes); }},
            {"ppsRtcCalibrationStart", [&] { return api.ppsRtcCalibrationStart({}, 0); }},
            {"ppsStatusGet",
             [&] {
                 PpsCalibStatus status{};
                 PpsCalibReasonOfFailure reason{};
                 return api.ppsStatusGet(status, reason);
             }},
            {"ppsHopLengthTimeGet", [&] { return api.ppsHopLengthTimeGet(m.word); }},
            {"ppsConfigure", [&] { return api.ppsConfigure({}, 0); }},
            {"ppsOutputModeSet", [&] { return api.ppsOutputModeSet({}); }},
            {"onePpsAsymmetryCompensation",
             [&] { return flag(api.onePpsAsymmetryCompensation(Action::Read, m.small)); }},
            {"rxChainDelay", [&] { return flag(api.rxChainDelay(Action::Read, ModemChain::Main, m.byte)); }},
            {"rxEqualizerFeedForwardFilterDelay",
             [&] {
                 return flag(api.rxEqualizerFeedForwardFilterDelay(Action::Read, ModemChain::Main, m.byte));
             }},
            {"setRxChainDelay", [&] { return api.setRxChainDelay(ModemChain::Main, 0); }},
            {"mimoDiversityMute", [&] { return api.mimoDiversityMute(false); }},
            {"mimoConfigurationSet", [&] { return api.mimoConfigurationSet(); }},
            {"mimoCrossConnectDelayCalibrationStart",
             [&] { return api.mimoCrossConnectDelayCalibrationStart(); }},
            {"mimoCrossConnectDelayCalibrationStatusGet",
             [&] {
                 MimoCalibrationStatus status{};
                 return api.mimoCrossConnectDelayCalibrationStatusGet(status);
             }},
            {"setTxFrequency", [&] { return api.setTxFrequency(0); }},
            {"setRxFrequency", [&] { return api.setRxFrequency(0); }},
            {"setNarrowWideFilters", [&] { return api.setNarrowWideFilters(0); }},
            {"getNarrowWideFilters", [&] { return api.getNarrowWideFilters(m.number); }}};
    }

    Calls dspControlCalls()
    {
        auto& api = dspControl(1);
        return {{"getRequiredRecovery",
                 [&] {
                     Recover needed{};
                     return api.getRequiredRecovery(FFConfigType::Std, needed, m.yes);
                 }},
                {"checkDspReconfiguration",
                 [&] { return api.checkDspReconfiguration(FFConfigType::Std, m.yes); }},
                {"getMimoMode", [&] { return api.getMimoMode(m.number); }}};
    }

    Calls dspStatusCalls()
    {
        auto& api = dspStatus(1);
        return {{"getErrorBlocks",
                 [&] {
                     DspErrorBlocks blocks;
                     return api.getErrorBlocks(blocks, false);
                 }},
                {"getSlaveAgc", [&] { return api.getSlaveAgc(m.small, m.small); }},
                {"getIqSlaveImbalance",
                 [&] { return api.getIqSlaveImbalance(m.small, m.small, m.small, m.small, m.small); }},
                {"mimoStatusGet",
                 [&] {
                     MimoStatusStruct status;
                     return api.mimoStatusGet(status);
                 }},
                {"getRxXcStatusLevel", [&] { return api.getRxXcStatusLevel(&m.small, &m.small); }}};
    }

    static Calls dspAcmCalls()
    {
        auto& api = *dsp(1).getAcmApi();
        return {{"setAcmRlpControl", [&] { return api.setAcmRlpControl({}); }},
                {"setAcmMode", [&] { return api.setAcmMode({}, {}); }},
                {"getAcmMode", [&] {
                     AcmMode mode{};
                     AcmModePosition position{};
                     return api.getAcmMode(mode, position);
                 }}};
    }

    Calls rssiCalls()
    {
        auto& rssi = of<IRssiHandler>("IRssiHandler");
        return {{"calculateRssiThreshold", [&] { return rssi.calculateRssiThreshold(0, m.number); }},
                {"setRssiThreshold", [&] { return rssi.setRssiThreshold(0); }},
                {"getRssi", [&] { return rssi.getRssi(m.number); }}};
    }

    static Calls mimoCalls()
    {
        auto& mimo = of<IMimoController>("IMimoController");
        return {{"setLinkType", [&] { return mimo.setLinkType({}); }},
                {"stop", [&] { return mimo.stop(); }},
                {"mimoSpatialMute", [&] { return mimo.mimoSpatialMute(false); }}};
    }

    Calls ppsCalls()
    {
        auto& pps = require<nord::zyr::pps::IPpsController>("IPpsController1");
        return {{"configureRole", [&] { return pps.configureRole(false, {}); }},
                {"getHopLengthLatency", [&] { return pps.getHopLengthLatency(m.word); }}};
    }

    static Calls loopCalls()
    {
        auto& loops = require<nord::zyr::loops::ILoopController>("ILoopController");
        return {{"getLoops",
                 [&] {
                     std::vector<LoopStatePair> states;
                     return loops.getLoops(states);
                 }},
                {"setLoop", [&] { return loops.setLoop("IfLoop1", false); }}};
    }

    Calls ifLoopCalls()
    {
        auto& driver = of<IIfLoopDriver>("IIfLoopDriver");
        return {{"getIfLoop", [&] { return static_cast<std::uint32_t>(driver.getIfLoop(m.byte)); }},
                {"setIfLoop", [&] { return static_cast<std::uint32_t>(driver.setIfLoop(false)); }}};
    }

    Calls latencyCalls()
    {
        auto& calculator = of<IRauLatencyCalculator>("IRauLatencyCalculator");
        return {
            {"getCurrentLatency", [&] { return calculator.getCurrentLatency(m.yes, m.yes, m.word, m.word); }},
            {"calculateAndSetDspDelayCompensation",
             [&] { return calculator.calculateAndSetDspDelayCompensation({}); }}};
    }

    static Calls combinerCalls()
    {
        auto& sdc = of<ISpaceDiversityCombinerController>("ISpaceDiversityCombinerController");
        return {{"setSdcEnable", [&] { return sdc.setSdcEnable(true); }},
                {"setDadeCalibration", [&] { return sdc.setDadeCalibration(true); }},
                {"setSdcPath", [&] { return sdc.setSdcPath(SdcPath::Main); }},
                {"setRlConfiguration", [&] { return sdc.setRlConfiguration({}, 0, false); }}};
    }

    Calls spectrumCalls()
    {
        auto& spectrum = of<ISpectrumDiagnosticsController>("ISpectrumDiagnosticsController");
        return {{"scanControl", [&] { return spectrum.scanControl(2, 0); }},
                {"getResult", [&] {
                     m.number = 0;
                     return spectrum.getResult(m.number, nullptr);
                 }}};
    }

    Calls tapsLogCalls()
    {
        auto& log = of<ITapsControllerLog>("ITapsControllerLog");
        return {{"startLog", [&] { return log.startLog(); }},
                {"stopLog", [&] { return log.stopLog(); }},
                {"setLogPeriod", [&] { return log.setLogPeriod(1); }},
                {"dumpLogToFile", [&] { return log.dumpLogToFile(); }},
                {"readSample",
                 [&] {
                     TapsLogData sample;
                     return log.readSample(sample);
                 }},
                {"getLogPeriod", [&] { return log.getLogPeriod(m.word); }}};
    }

    Calls outputPowerHandlerCalls()
    {
        auto& handler = *find<IOutputPowerHandler>("IOutputPowerHandler.1");
        return {
            {"getReducedGain", [&] { return handler.getReducedGain(1, m.number); }},
            {"getTxRfGain", [&] { return handler.getTxRfGain(m.number); }},
            {"setTxRfGain", [&] { return handler.setTxRfGain(0); }},
            {"setBarOn", [&] { return handler.setBarOn(false); }},
            {"getTxIfOutputPower", [&] { return handler.getTxIfOutputPower(m.number); }},
            {"setTxIfOutputPower", [&] { return handler.setTxIfOutputPower(0); }},
            {"setTxIfBarOn", [&] { return handler.setTxIfBarOn(false); }},
            {"getDacValue", [&] { return handler.getDacValue(m.number); }},
            {"testGetDetectedPower", [&] { return handler.testGetDetectedPower(m.number); }},
            {"testGetDetectorInUse", [&] { return handler.testGetDetectorInUse(m.yes, m.number, m.number); }},
            {"testGetDetectorData", [&] {
                 TxDetectorData data;
                 return handler.testGetDetectorData(data);
             }}};
    }

    /// All collaborators that can fail, each with its calls.
    // The clocks tell a failure by errno.
    static std::uint32_t reason(bool success) { return success ? 0 : static_cast<std::uint32_t>(errno); }

    static Calls systemTimeCalls()
    {
        return {{"access", [] { return reason(Util::SystemTimeApi::get().access("/dev/rtc", 0) == 0); }},
                {"stime", [] {
                     const std::time_t seconds = 1768379405;
                     return reason(Util::SystemTimeApi::get().stime(&seconds) == 0);
                 }}};
    }

    static Calls deviceCalls()
    {
        auto& factory = DDevIo::Factory::getInstance();
        return {{"makeUnique32", [&] { return reason(factory.makeUnique32("rtc0", nullptr) != nullptr); }},
                {"ioctl", [&] {
                     std::tm time{};
                     return reason(factory.makeUnique32("rtc0", nullptr)
                                       ->ioctl(static_cast<int>(0x80247009U),
                                               reinterpret_cast<unsigned long>(&time)) == 0);
                 }}};
    }

    std::map<std::string, Calls> allCalls()
    {
        using nord::zyr::services::recovery::RecoveryController;
        return {
            {"CModuleManager", {{"RunGroup", [] { return CModuleManager_RunGroup(5, 1); }}}},
            {"DDevIo", deviceCalls()},
            {"IAcmHandler", acmCalls()},
            {"IAlarmHandlerTopApi", alarmCalls()},
            {"IBasebandSdcController", sdcCalls()},
            {"ICcdpController", ccdpCalls()},
            {"IDspAcmApi", dspAcmCalls()},
            {"IDspChannelApi", dspChannelCalls()},
            {"IDspControlApi", dspControlCalls()},
            {"IDspStatusApi", dspStatusCalls()},
            {"IFrequencyController",
             {{"setTxFrequency", [] { return frequencies(1).setTxFrequency(14'500'000, 1); }},
              {"setRxFrequency", [] { return frequencies(1).setRxFrequency(14'920'000, 1); }}}},
            {"IHardwareConfigurationHandler", hardwareCalls()},
            {"IIfLoopDriver", ifLoopCalls()},
            {"ILoopController", loopCalls()},
            {"IMimoController", mimoCalls()},
            {"IOutputPowerHandler", outputPowerHandlerCalls()},
            {"IRauLatencyCalculator", latencyCalls()},
            {"IRouteUpdater",
             {{"updateRoute", [] { return require<IRouteUpdater>("IRouteUpdater").updateRoute({}, {}); }}}},
            {"ISpaceDiversityCombinerController", combinerCalls()},
            {"ISpcSimulator",
             {{"simulate", [] { return of<ISpcSimulator>("ISpcSimulator").simulate(2, 0, 0, 0, 0); }}}},
            {"ISpectrumDiagnosticsController", spectrumCalls()},
            {"ITapsControllerLog", tapsLogCalls()},
            {"IOutputPowerCalculator", calculatorCalls()},
            {"IPpsController", ppsCalls()},
            {"IRauHandler", rauCalls()},
            {"IRssiHandler", rssiCalls()},
            {"ISystemPowerController", systemPowerCalls()},
            {"SystemTimeApi", systemTimeCalls()},
            {"ITapsController", tapsCalls()},
            {"ITxIQImbalanceHandler",
             {{"OnTxFrequencyChanged",
               [] { return of<ITxIQImbalanceHandler>("ITxIQImbalanceHandler").OnTxFrequencyChanged(0); }}}},
            {"IZyrRleHandler",
             {{"setRadioLinkEncryption",
               [] {
                   return flag(
                       of<zyr::IZyrRleHandler>("IZyrRleHandler").setRadioLinkEncryption("", 0, 0, false));
               }}}},
            {"XpicConnectedDriver", {{"read", [] { return readDriver("channel.1.xpic.connected"); }}}},
            {"XpicTxEnableDriver",
             {{"read", [] { return readDriver("channel.1.xpic.tx.enable"); }},
              {"write", [] { return writeDriver("channel.1.xpic.tx.enable", 1); }}}},
            {"RecoveryController",
             {{"startDspRecovery",
               [] {
                   return require<RecoveryController>("RecoveryController").startDspRecovery(Recover::Dsp);
               }}}},
        };
    }
};

TEST_F(EveryFaultTest, everyOperationThatIsListedFailsOnceOnRequest)
{
    for (const auto& [collaborator, calls] : allCalls()) {
        for (const auto& [operation, call] : calls) {
            node().faults().inject({collaborator, operation, 0, kOrdered, 1});
            EXPECT_EQ(call(), kOrdered) << collaborator << "::" << operation;
            EXPECT_TRUE(node().faults().list().empty()) << collaborator << "::" << operation;
            if (operation != "getFastAlarms") { // which would wait
                EXPECT_NE(call(), kOrdered) << collaborator << "::" << operation;
            }
        }
    }
}

TEST_F(EveryFaultTest, noOtherOperationIsListed)
{
    // What fails by itself and not in a call is tested with what it belongs to.
    std::map<std::string, std::vector<std::string>> called{{"MimoCalibration", {"correlate"}}};
    for (const auto& [collaborator, calls] : allCalls()) {
        auto& operations = called[collaborator];
        for (const auto& [operation, call] : calls) {
            operations.push_back(operation);
        }
    }
    std::map<std::string, std::vector<std::string>> listed;
    for (auto [collaborator, operations] : node().faults().operations()) {
        std::ranges::sort(operations);
        listed[collaborator] = operations;
    }
    EXPECT_EQ(called, listed);
}

} // namespace
