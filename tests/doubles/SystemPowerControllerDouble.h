#pragma once

#include "Answer.h"
#include "ISystemPowerController.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `ISystemPowerController`.
class SystemPowerControllerDouble : public ISystemPowerController, public Recorder
{
  public:
    SystemPowerControllerDouble(Transcript& transcript, std::string name);
    ~SystemPowerControllerDouble() override;
    SystemPowerControllerDouble(const SystemPowerControllerDouble&) = delete;
    SystemPowerControllerDouble& operator=(const SystemPowerControllerDouble&) = delete;

    bool isConfigurationBypassed() override
    {
        record("isConfigurationBypassed");
        return onIsConfigurationBypassed.next();
    }

    ESPCResult setReferenceSec(zyr_top_api::ReferenceSec referenceSec) override
    {
        record("setReferenceSec", referenceSec);
        return onSetReferenceSec.next();
    }

    ESPCResult setTemporaryPmaxCapability() override
    {
        record("setTemporaryPmaxCapability");
        return onSetTemporaryPmaxCapability.next();
    }

    ESPCResult overrideTxPowerState(zyr_top_api::ETxPowerOverrideState state) override
    {
        record("overrideTxPowerState", state);
        return onOverrideTxPowerState.next();
    }

    ESPCResult onTxFrequencyChanged(unsigned frequency_kHz) override
    {
        record("onTxFrequencyChanged", frequency_kHz);
        return onOnTxFrequencyChanged.next();
    }

    ESPCResult notifyRequestedPowerSettings(bool fallbackEnable, int fallbackOutputPower,
                                            unsigned fallbackTimer) override
    {
        record("notifyRequestedPowerSettings", fallbackEnable, fallbackOutputPower, fallbackTimer);
        return onNotifyRequestedPowerSettings.next();
    }

    ESPCResult configurePowerSettings(zyr_top_api::TxRequestedStatus status, int targetRfInputPowerFarEnd,
                                      int minRfOutputPower, int maxRfOutputPower, int lastButOne,
                                      int last) override
    {
        record("configurePowerSettings", status, targetRfInputPowerFarEnd, minRfOutputPower, maxRfOutputPower,
               lastButOne, last);
        return onConfigurePowerSettings.next();
    }

    ESPCResult setAdminRequestedTxPowerState(zyr_top_api::TxRequestedStatus status, int last) override
    {
        record("setAdminRequestedTxPowerState", status, last);
        return onSetAdminRequestedTxPowerState.next();
    }

    ESPCResult syncAfterWarmRestart() override
    {
        record("syncAfterWarmRestart");
        return onSyncAfterWarmRestart.next();
    }

    ESPCResult prepareRadioRestart() override
    {
        record("prepareRadioRestart");
        return onPrepareRadioRestart.next();
    }

    std::int32_t getReportedOutputPower() override
    {
        record("getReportedOutputPower");
        return onGetReportedOutputPower.next();
    }

    bool getTxBarOn() override
    {
        record("getTxBarOn");
        return onGetTxBarOn.next();
    }

    zyr_top_api::TxRequestedStatus getTxRequestedStatus() override
    {
        record("getTxRequestedStatus");
        return onGetTxRequestedStatus.next();
    }

    bool getTargetInputPowerBarOn() override
    {
        record("getTargetInputPowerBarOn");
        return onGetTargetInputPowerBarOn.next();
    }

    bool getOutputPowerBarOn() override
    {
        record("getOutputPowerBarOn");
        return onGetOutputPowerBarOn.next();
    }

    std::int32_t getMinOutputPower() override
    {
        record("getMinOutputPower");
        return onGetMinOutputPower.next();
    }

    std::int32_t getMaxOutputPower() override
    {
        record("getMaxOutputPower");
        return onGetMaxOutputPower.next();
    }

    bool getIgnorePowerLimits() override
    {
        record("getIgnorePowerLimits");
        return onGetIgnorePowerLimits.next();
    }

    zyr_top_api::ForceLoopMode getForceLoopMode() override
    {
        record("getForceLoopMode");
        return onGetForceLoopMode.next();
    }

    ESPCResult overridePowerSettings(bool txRequestedStatusBarOn,
                                     zyr_top_api::TxRequestedStatus txRequestedStatus,
                                     bool targetRfInputPowerBarOn, int targetRfInputPower,
                                     bool rfOutputPowerBarOn, int minRfOutputPower, int maxRfOutputPower,
                                     bool ignorePowerLimits,
                                     zyr_top_api::ForceLoopMode forceLoopMode) override
    {
        record("overridePowerSettings", txRequestedStatusBarOn, txRequestedStatus, targetRfInputPowerBarOn,
               targetRfInputPower, rfOutputPowerBarOn, minRfOutputPower, maxRfOutputPower, ignorePowerLimits,
               forceLoopMode);
        return onOverridePowerSettings.next();
    }

    Answer<bool> onIsConfigurationBypassed;
    Answer<ESPCResult> onSetReferenceSec;
    Answer<ESPCResult> onSetTemporaryPmaxCapability;
    Answer<ESPCResult> onOverrideTxPowerState;
    Answer<ESPCResult> onOnTxFrequencyChanged;
    Answer<ESPCResult> onNotifyRequestedPowerSettings;
    Answer<ESPCResult> onConfigurePowerSettings;
    Answer<ESPCResult> onSetAdminRequestedTxPowerState;
    Answer<ESPCResult> onSyncAfterWarmRestart;
    Answer<ESPCResult> onPrepareRadioRestart;
    Answer<std::int32_t> onGetReportedOutputPower;
    Answer<bool> onGetTxBarOn;
    Answer<zyr_top_api::TxRequestedStatus> onGetTxRequestedStatus;
    Answer<bool> onGetTargetInputPowerBarOn;
    Answer<bool> onGetOutputPowerBarOn;
    Answer<std::int32_t> onGetMinOutputPower;
    Answer<std::int32_t> onGetMaxOutputPower;
    Answer<bool> onGetIgnorePowerLimits;
    Answer<zyr_top_api::ForceLoopMode> onGetForceLoopMode;
    Answer<ESPCResult> onOverridePowerSettings;
};

} // namespace zyr_test
