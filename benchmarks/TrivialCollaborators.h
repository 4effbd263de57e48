#pragma once

#include "IAcmHandler.h"
#include "IBasebandSdcController.h"
#include "ICapabilityHandler.h"
#include "ICcdpController.h"
#include "IDspApi.h"
#include "IDspChannelApi.h"
#include "IDspControlApi.h"
#include "IDspStatusApi.h"
#include "IFrequencyController.h"
#include "IHardwareConfigurationHandler.h"
#include "IMimoController.h"
#include "IOutputPowerCalculator.h"
#include "IOutputPowerController.h"
#include "IPpsController.h"
#include "IRadio.h"
#include "IRadioCapability.h"
#include "IRauHandler.h"
#include "IRssiHandler.h"
#include "ISystemPowerController.h"
#include "ITapsController.h"
#include "ITxIQImbalanceHandler.h"
#include "IZyrRleHandler.h"
#include "Publication.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// The collaborators of radio channel 1, which do next to nothing and succeed: what is spent on a command is
/// the command's own.
namespace benchmark_trivial
{

using namespace zyr_top_api;

struct CcdpController final : ICcdpController
{
    ETIResult setBar(bool) override { return {}; }
    ETIResult forceXpic(LinkType) override { return {}; }
    ETIResult xpicMute(bool) override { return {}; }
    ETIResult getPreamble(XpicMimoPreamble&) override { return {}; }
    ETIResult xpicAcquireStart(XpicAcquireMode, XpicSpectralInversionMode) override { return {}; }
    ETIResult getXpicStatusStruct(XpicStatusStruct&) override { return {}; }
    ETIResult start(LinkType) override { return {}; }
    ETIResult stop() override { return {}; }
    bool isStarted() override { return {}; }
    ETIResult getXpi(int&) override { return {}; }
    ETIResult getState(std::string&) override { return {}; }
};

struct FrequencyController final : IFrequencyController
{
    EFCResult setTxFrequency(unsigned, int) override { return {}; }
    EFCResult setRxFrequency(unsigned, int) override { return {}; }
    std::int32_t getTxFrequency() override { return {}; }
    std::int32_t getRxFrequency() override { return {}; }
};

struct HardwareConfigurationHandler final : IHardwareConfigurationHandler
{
    bool isMimoCapable(unsigned) override { return {}; }
    EHCHResult setRadioFrameId(RadioChannel, unsigned, int) override { return {}; }
    bool isChannelInUse(RadioChannel) override { return {}; }
    EHCHResult getFrameUpdateMode(unsigned&) override { return {}; }
    EHCHResult setFrameUpdateMode(unsigned) override { return {}; }
    EHCHResult isXpicCapable(unsigned, bool&) override { return {}; }
    EHCHResult getConfigType(RadioChannel, unsigned, FFConfigType&) override { return {}; }
    std::vector<RadioFrameRecord> getRadioFrames(bool) override { return {}; }
    ETIResult getPerformanceProfileArray(unsigned, unsigned, std::vector<std::int16_t>&) override
    {
        return {};
    }
    EHCHResult setRauCarrierAggregation(bool) override { return {}; }
};

struct MimoController final : IMimoController
{
    ETIResult setLinkType(LinkType) override { return {}; }
    bool isStarted() override { return {}; }
    ETIResult stop() override { return {}; }
    general_classes::Optional<std::int32_t> getEta() override { return {}; }
    MimoLockStatus getStatus() override { return {}; }
    general_classes::Optional<std::int32_t> getXpi() override { return {}; }
    general_classes::Optional<MimoLockStatus> getXpicStatus() override { return {}; }
    ETIResult mimoSpatialMute(bool) override { return {}; }
};

struct BasebandSdcController final : IBasebandSdcController
{
    ETIResult start(bool) override { return {}; }
    ETIResult stop() override { return {}; }
    ETIResult startDadeCalibration() override { return {}; }
    ETIResult abortDadeCalibration() override { return {}; }
    ETIResult resetDadeCalibration() override { return {}; }
    ETIResult setDadeParams(std::uint16_t, std::uint16_t) override { return {}; }
    ETIResult setChannels(bool, bool) override { return {}; }
    bool isStarted() override { return {}; }
    BasebandSdcStatusData getStatus() override { return {}; }
    BasebandSdcDadeStatus getDadeStatus() override { return {}; }
    std::int32_t getDadeDelay() override { return {}; }
    std::uint32_t getCalibrationData() override { return {}; }
};

struct DspChannelApi final : IDspChannelApi
{
    bool isConfigured() override { return true; }
    EDspChannelState getChannelState() override { return {}; }
    ETIResult getPpfLockStatus(bool& locked) override
    {
        locked = true;
        return {};
    }
    ETIResult getDspTxMode(bcm::types::ModemChain, EDspATxMode&, int&, int&) override { return {}; }
    ETIResult setDspTxMode(bcm::types::ModemChain, EDspATxMode, int, int) override { return {}; }
    void injectI2cError(unsigned) override {}
};

struct DspControlApi final : IDspControlApi
{
    bool isCarrierAggregationActive() override { return {}; }
    ETIResult getRequiredRecovery(FFConfigType, Recover&, bool&) override { return {}; }
    ETIResult checkDspReconfiguration(FFConfigType, bool&) override { return {}; }
    bool isAccessible() override { return {}; }
    ETIResult getMimoMode(int&) override { return {}; }
    void injectComError(unsigned, unsigned) override {}
};

struct DspStatusApi final : IDspStatusApi
{
    bool isLinkUp() override { return true; }
    ETIResult getErrorBlocks(DspErrorBlocks& blocks, bool) override
    {
        blocks.backgroundBlocks = 1;
        return {};
    }
    std::int32_t getSnir() override { return {}; }
    std::int32_t getLowestSnir(bool) override { return {}; }
    std::int32_t getEbSinceLastRxLock() override { return {}; }
    std::int32_t getRxLockedCounter() override { return {}; }
    void injectComError(unsigned, unsigned) override {}
};

struct OutputPowerCalculator final : IOutputPowerCalculator
{
    ESPCResult setPowerCutBack(unsigned) override { return {}; }
    ESPCResult setBooster(int, int, int, Modulation) override { return {}; }
    ETIResult setTemporaryMaxPowerCutback(bool, int) override { return {}; }
    ETIResult getMaxOutputPower(int, ModulationAndCoding, ModulationAndCoding, ReferenceSec, int&,
                                std::map<ModulationAndCoding, int>&) override
    {
        return {};
    }
};

struct OutputPowerController final : IOutputPowerController
{
    ETxPowerActualStatus getTxStatus() override { return {}; }
    void setGain(unsigned, unsigned, double) override {}
    double getGain(unsigned, unsigned) override { return {}; }
};

struct PpsController final : nord::zyr::pps::IPpsController
{
    ETIResult configureRole(bool, PpsOutputMode) override { return {}; }
    ETIResult getHopLengthLatency(unsigned&) override { return {}; }
};

// What a radio does, whatever else it is.
template <class Interface>
struct RadioOf : Interface
{
    bool isAvailable() override { return true; }
    ERAUHResult triggerRestart(unsigned) override { return {}; }
    RadioRestartStatus getRestartStatus() override { return {}; }
    ERAUHResult endRestart() override { return {}; }
    bool isPowerSupplied() override { return {}; }
    ERAUHResult setPowerSupplied(std::uint32_t) override { return {}; }
    ETIResult setActiveSubBand(unsigned char) override { return {}; }
};

struct Radio final : RadioOf<IRadio>
{};

struct RadioCapability final : IRadioCapability
{
    FrequencyCapability getFrequencyCapability() override { return {}; }
    FeatureCapability getFeatureCapability() override { return {}; }
};

struct RauHandler final : RadioOf<IRauHandler>
{
    ERAUHResult setTxIfSwitch2T2R(unsigned, unsigned) override { return {}; }
    ERAUHResult setPowerMode(RauPowerMode) override { return {}; }
    ERAUHResult getPowerMode(unsigned char, unsigned char&) override { return {}; }
    bool isRau2T2R() override { return {}; }
};

struct RssiHandler final : IRssiHandler
{
    ERSSIResult calculateRssiThreshold(unsigned, int&) override { return {}; }
    ERSSIResult setRssiThreshold(int) override { return {}; }
    ETIResult getRssi(int&) override { return {}; }
};

struct SystemPowerController final : ISystemPowerController
{
    bool isConfigurationBypassed() override { return {}; }
    ESPCResult setReferenceSec(ReferenceSec) override { return {}; }
    ESPCResult setTemporaryPmaxCapability() override { return {}; }
    ESPCResult overrideTxPowerState(ETxPowerOverrideState) override { return {}; }
    ESPCResult onTxFrequencyChanged(unsigned) override { return {}; }
    ESPCResult notifyRequestedPowerSettings(bool, int, unsigned) override { return {}; }
    ESPCResult configurePowerSettings(TxRequestedStatus, int, int, int, int, int) override { return {}; }
    ESPCResult setAdminRequestedTxPowerState(TxRequestedStatus, int) override { return {}; }
    ESPCResult syncAfterWarmRestart() override { return {}; }
    ESPCResult prepareRadioRestart() override { return {}; }
    std::int32_t getReportedOutputPower() override { return {}; }
    bool getTxBarOn() override { return {}; }
    TxRequestedStatus getTxRequestedStatus() override { return {}; }
    bool getTargetInputPowerBarOn() override { return {}; }
    bool getOutputPowerBarOn() override { return {}; }
    std::int32_t getMinOutputPower() override { return {}; }
    std::int32_t getMaxOutputPower() override { return {}; }
    bool getIgnorePowerLimits() override { return {}; }
    ForceLoopMode getForceLoopMode() override { return {}; }
    ESPCResult overridePowerSettings(bool, TxRequestedStatus, bool, int, bool, int, int, bool,
                                     ForceLoopMode) override
    {
        return {};
    }
};

struct TapsController final : ITapsController
{
    ESPCResult setTapsEnable(bool) override { return {}; }
    bool getTapsEnable() override { return {}; }
    ESPCResult setIdleRateOffset(std::int32_t, int) override { return {}; }
    ESPCResult setIdleRateThresholdFactor(double) override { return {}; }
    ESPCResult setKvalue(std::int32_t) override { return {}; }
    ESPCResult setHrlbEnabled(bool) override { return {}; }
    std::int32_t getIdleRateOffset() override { return {}; }
    double getIdleRateThresholdFactor() override { return {}; }
    std::int32_t getKvalue() override { return {}; }
    bool getHrlbEnabled() override { return {}; }
};

struct TxIQImbalanceHandler final : ITxIQImbalanceHandler
{
    EFHResult OnTxFrequencyChanged(unsigned) override { return {}; }
};

struct ZyrRleHandler final : zyr::IZyrRleHandler
{
    std::int32_t getRleStatus() override { return {}; }
    bool setRadioLinkEncryption(const std::string&, std::uint32_t, std::uint32_t, bool) override
    {
        return {};
    }
};

struct AcmHandler final : IAcmHandler
{
    EACMHResult enableAcm(bool) override { return {}; }
    EACMHResult muteAcm() override { return {}; }
    EACMHResult restoreAcm() override { return {}; }
    EACMHResult setMinMaxModulationAndCode(ModulationAndCoding, ModulationAndCoding) override { return {}; }
    EACMHResult getPhyMode(ModulationAndCoding, unsigned&) override { return {}; }
    ETIResult getLowestModulationAndCode(ModulationAndCoding& rx, ModulationAndCoding& tx, bool) override
    {
        rx = ModulationAndCoding::QAM_256;
        tx = ModulationAndCoding::QAM_1024_LIGHT;
        return {};
    }
};

struct CapabilityHandler final : ICapabilityHandler
{};

struct DspApi final : IDspApi
{
    IDspChannelApi* getDspChannelApi() override { return &channel; }
    IDspStatusApi* getDspStatusApi() override { return &status; }
    IDspControlApi* getDspControlApi() override { return &control; }
    IDspAcmApi* getAcmApi() override { return nullptr; }

    DspChannelApi channel;
    DspStatusApi status;
    DspControlApi control;
};

/// One of each, published as long as this lives.
template <class Double>
struct Published
{
    explicit Published(const char* name) : publication(name, collaborator) {}

    Double collaborator;
    zyr_platform::Publication publication;
};

struct Collaborators
{
    Published<AcmHandler> acmHandler{"IAcmHandler_1"};
    Published<BasebandSdcController> basebandSdcController{"IBasebandSdcController_1"};
    Published<CapabilityHandler> capabilityHandler{"ICapabilityHandler_1"};
    Published<CcdpController> ccdpController{"ICcdpController_1"};
    Published<DspApi> dspApi{"IDspApi_1"};
    Published<FrequencyController> frequencyController{"IFrequencyController_1"};
    Published<MimoController> mimoController{"IMimoController_1"};
    Published<OutputPowerCalculator> outputPowerCalculator{"IOutputPowerCalculator_1"};
    Published<OutputPowerController> outputPowerController{"IOutputPowerController_1"};
    Published<PpsController> ppsController{"IPpsController1"};
    Published<Radio> radio{"IRadio_1"};
    Published<RadioCapability> radioCapability{"IRadioCapability_1"};
    Published<RauHandler> rauHandler{"IRauHandler_1"};
    Published<RssiHandler> rssiHandler{"IRssiHandler_1"};
    Published<SystemPowerController> systemPowerController{"ISystemPowerController_1"};
    Published<TapsController> tapsController{"ITapsController_1"};
    Published<TxIQImbalanceHandler> txIQImbalanceHandler{"ITxIQImbalanceHandler_1"};
    Published<ZyrRleHandler> zyrRleHandler{"IZyrRleHandler_1"};
    Published<HardwareConfigurationHandler> hardwareConfigurationHandler{"IHardwareConfigurationHandler"};
};

} // namespace benchmark_trivial
