#pragma once

#include "Answer.h"
#include "IAcmHandler.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IAcmHandler`.
class AcmHandlerDouble : public IAcmHandler, public Recorder
{
  public:
    AcmHandlerDouble(Transcript& transcript, std::string name);
    ~AcmHandlerDouble() override;
    AcmHandlerDouble(const AcmHandlerDouble&) = delete;
    AcmHandlerDouble& operator=(const AcmHandlerDouble&) = delete;

    EACMHResult enableAcm(bool enable) override
    {
        record("enableAcm", enable);
        return defaultsInForce ? IAcmHandler::enableAcm(enable) : onEnableAcm.next();
    }

    EACMHResult muteAcm() override
    {
        record("muteAcm");
        return defaultsInForce ? IAcmHandler::muteAcm() : onMuteAcm.next();
    }

    EACMHResult restoreAcm() override
    {
        record("restoreAcm");
        return defaultsInForce ? IAcmHandler::restoreAcm() : onRestoreAcm.next();
    }

    EACMHResult setMinMaxModulationAndCode(zyr_top_api::ModulationAndCoding min,
                                           zyr_top_api::ModulationAndCoding max) override
    {
        record("setMinMaxModulationAndCode", min, max);
        return defaultsInForce ? IAcmHandler::setMinMaxModulationAndCode(min, max)
                               : onSetMinMaxModulationAndCode.next();
    }

    EACMHResult getPhyMode(zyr_top_api::ModulationAndCoding modulation, unsigned& phyMode) override
    {
        record("getPhyMode", modulation);
        return defaultsInForce ? IAcmHandler::getPhyMode(modulation, phyMode) : onGetPhyMode.next(phyMode);
    }

    EACMHResult
    isFarEndPmaxCapabilityDifferent(const std::map<zyr_top_api::Modulation, int>& capability) override
    {
        record("isFarEndPmaxCapabilityDifferent", capability);
        return defaultsInForce ? IAcmHandler::isFarEndPmaxCapabilityDifferent(capability)
                               : onIsFarEndPmaxCapabilityDifferent.next();
    }

    EACMHResult setFarEndPmaxCapability(const std::map<zyr_top_api::Modulation, int>& capability) override
    {
        record("setFarEndPmaxCapability", capability);
        return defaultsInForce ? IAcmHandler::setFarEndPmaxCapability(capability)
                               : onSetFarEndPmaxCapability.next();
    }

    void cacheThresholds() override
    {
        record("cacheThresholds");
        IAcmHandler::cacheThresholds();
    }

    void disableModulation() override
    {
        record("disableModulation");
        IAcmHandler::disableModulation();
    }

    void enableModulation() override
    {
        record("enableModulation");
        IAcmHandler::enableModulation();
    }

    EACMHResult syncAfterWarmRestart() override
    {
        record("syncAfterWarmRestart");
        return defaultsInForce ? IAcmHandler::syncAfterWarmRestart() : onSyncAfterWarmRestart.next();
    }

    zyr_top_api::ETIResult getLowestModulationAndCode(zyr_top_api::ModulationAndCoding& rx,
                                                      zyr_top_api::ModulationAndCoding& tx,
                                                      bool reset) override
    {
        record("getLowestModulationAndCode", reset);
        return defaultsInForce ? IAcmHandler::getLowestModulationAndCode(rx, tx, reset)
                               : onGetLowestModulationAndCode.next(rx, tx);
    }

    zyr_top_api::ModulationAndCoding getCurrentTxModulationAndCode() const override
    {
        record("getCurrentTxModulationAndCode");
        return defaultsInForce ? IAcmHandler::getCurrentTxModulationAndCode()
                               : onGetCurrentTxModulationAndCode.next();
    }

    zyr_top_api::ModulationAndCoding getCurrentRxModulationAndCode() const override
    {
        record("getCurrentRxModulationAndCode");
        return defaultsInForce ? IAcmHandler::getCurrentRxModulationAndCode()
                               : onGetCurrentRxModulationAndCode.next();
    }

    Answer<EACMHResult> onEnableAcm;
    Answer<EACMHResult> onMuteAcm;
    Answer<EACMHResult> onRestoreAcm;
    Answer<EACMHResult> onSetMinMaxModulationAndCode;
    Answer<EACMHResult, unsigned> onGetPhyMode;
    Answer<EACMHResult> onIsFarEndPmaxCapabilityDifferent;
    Answer<EACMHResult> onSetFarEndPmaxCapability;
    Answer<EACMHResult> onSyncAfterWarmRestart;
    Answer<zyr_top_api::ETIResult, zyr_top_api::ModulationAndCoding, zyr_top_api::ModulationAndCoding>
        onGetLowestModulationAndCode;
    mutable Answer<zyr_top_api::ModulationAndCoding> onGetCurrentTxModulationAndCode;
    mutable Answer<zyr_top_api::ModulationAndCoding> onGetCurrentRxModulationAndCode;
};

} // namespace zyr_test
