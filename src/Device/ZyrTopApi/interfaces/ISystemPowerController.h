#pragma once

#include "CollaboratorResults.h"
#include "ETxPowerOverrideState.h"
#include "ForceLoopMode.h"
#include "IInterface.h"
#include "ReferenceSec.h"
#include "TxRequestedStatus.h"

#include <cstdint>
#include <string>

/// The output power of one channel as a whole. Powers are in the controller's unit and pass through
/// unchanged. Unless an operation says otherwise, results from 0x8000 are failures.
class ZYR_EXPORT ISystemPowerController : public IInterface
{
  public:
    /// "ISystemPowerController_<n>", under which the controller of a channel is published.
    static std::string interfaceName(zyr_top_api::RadioChannel channel)
    {
        return IInterface::interfaceName("ISystemPowerController", channel);
    }

    /// Whether the channel is to be left as it is; `CriSetRadioChannelNearEnd` then only runs its closing
    /// phases.
    virtual bool isConfigurationBypassed() = 0;

    /// Sets the reference spectrum efficiency class. Called by `CriSetRadioChannelNearEnd`; the result is
    /// ignored.
    virtual ESPCResult setReferenceSec(zyr_top_api::ReferenceSec referenceSec) = 0;

    /// Puts a passing limit on the greatest power. Called by `CriSetRadioChannelNearEnd`.
    virtual ESPCResult setTemporaryPmaxCapability() = 0;

    /// Holds the transmitter off, or gives it back to its requested state. Called by
    /// `CriSetRadioChannelNearEnd`.
    virtual ESPCResult overrideTxPowerState(zyr_top_api::ETxPowerOverrideState state) = 0;

    /// Told of a new transmit frequency, in kHz. Called by `CriSetRadioChannelNearEnd`.
    virtual ESPCResult onTxFrequencyChanged(unsigned frequency_kHz) = 0;

    /// Told of the fallback of automatic power control before the power is set. Called by `CriSetRfPower`.
    virtual ESPCResult notifyRequestedPowerSettings(bool fallbackEnable, int fallbackOutputPower,
                                                    unsigned fallbackTimer) = 0;

    /// Sets the requested state, the far end's target input power and the output power window. Called by
    /// `CriSetRfPower`, always with 0 and 1 in the last two places, whose sense is the controller's.
    virtual ESPCResult configurePowerSettings(zyr_top_api::TxRequestedStatus status,
                                              int targetRfInputPowerFarEnd, int minRfOutputPower,
                                              int maxRfOutputPower, int, int) = 0;

    /// Sets the requested state alone. Called by `CriSetRfPower`, always with 0 in the last place, whose
    /// sense is the controller's.
    virtual ESPCResult setAdminRequestedTxPowerState(zyr_top_api::TxRequestedStatus status, int) = 0;

    /// Takes over what the hardware does after a warm restart. Called by `CriWarmInitCompleted`; the result
    /// is ignored.
    virtual ESPCResult syncAfterWarmRestart() = 0;

    /// Told that the radio unit is about to restart. Called by `CriRestartRadio`; the result is ignored.
    virtual ESPCResult prepareRadioRestart() = 0;

    /// The output power that the radio reports. Called by `CriGetRadioChannelStatus` and
    /// `TiManageRadioChannelStatus`.
    virtual std::int32_t getReportedOutputPower() = 0;

    // The test access to the settings, called by `TiManageRfPower`. A bar that is on keeps the value that the
    // test has set from being changed by commands.

    /// Whether the requested state is barred.
    virtual bool getTxBarOn() = 0;

    /// The requested state.
    virtual zyr_top_api::TxRequestedStatus getTxRequestedStatus() = 0;

    /// Whether the target input power is barred.
    virtual bool getTargetInputPowerBarOn() = 0;

    /// Whether the output power window is barred.
    virtual bool getOutputPowerBarOn() = 0;

    /// The lower end of the output power window.
    virtual std::int32_t getMinOutputPower() = 0;

    /// The upper end of the output power window.
    virtual std::int32_t getMaxOutputPower() = 0;

    /// Whether the output power window may leave the radio's limits.
    virtual bool getIgnorePowerLimits() = 0;

    /// The loop in which power control is held.
    virtual zyr_top_api::ForceLoopMode getForceLoopMode() = 0;

    /// Sets all settings and bars at once.
    virtual ESPCResult overridePowerSettings(bool txRequestedStatusBarOn,
                                             zyr_top_api::TxRequestedStatus txRequestedStatus,
                                             bool targetRfInputPowerBarOn, int targetRfInputPower,
                                             bool rfOutputPowerBarOn, int minRfOutputPower,
                                             int maxRfOutputPower, bool ignorePowerLimits,
                                             zyr_top_api::ForceLoopMode forceLoopMode) = 0;
};
