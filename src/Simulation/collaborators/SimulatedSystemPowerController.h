#pragma once

#include "ISystemPowerController.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kSystemPowerControllerOperations{
    "ISystemPowerController",     "setReferenceSec",
    "setTemporaryPmaxCapability", "overrideTxPowerState",
    "onTxFrequencyChanged",       "notifyRequestedPowerSettings",
    "configurePowerSettings",     "setAdminRequestedTxPowerState",
    "syncAfterWarmRestart",       "prepareRadioRestart",
    "overridePowerSettings"};

/// Power control of a channel. Powers are in tenths of a dBm.
///
/// What a test bars keeps its value: a command that sets it succeeds without effect.
class SimulatedSystemPowerController final
    : public SimulatedCollaborator<ISystemPowerController, kSystemPowerControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    bool isConfigurationBypassed() override;
    ESPCResult setReferenceSec(zyr_top_api::ReferenceSec referenceSec) override;
    ESPCResult setTemporaryPmaxCapability() override;

    /// The transmitter follows after a while, as it does on every change of its requested status.
    ESPCResult overrideTxPowerState(zyr_top_api::ETxPowerOverrideState state) override;
    ESPCResult onTxFrequencyChanged(unsigned frequency_kHz) override;
    ESPCResult notifyRequestedPowerSettings(bool fallbackEnable, int fallbackOutputPower,
                                            unsigned fallbackTimer) override;

    /// Refuses a window whose ends are the wrong way round.
    ESPCResult configurePowerSettings(zyr_top_api::TxRequestedStatus status, int targetRfInputPowerFarEnd,
                                      int minRfOutputPower, int maxRfOutputPower, int, int) override;
    ESPCResult setAdminRequestedTxPowerState(zyr_top_api::TxRequestedStatus status, int) override;
    ESPCResult syncAfterWarmRestart() override;
    ESPCResult prepareRadioRestart() override;

    /// -990 while the transmitter is off.
    std::int32_t getReportedOutputPower() override;
    bool getTxBarOn() override;
    zyr_top_api::TxRequestedStatus getTxRequestedStatus() override;
    bool getTargetInputPowerBarOn() override;
    bool getOutputPowerBarOn() override;
    std::int32_t getMinOutputPower() override;
    std::int32_t getMaxOutputPower() override;
    bool getIgnorePowerLimits() override;
    zyr_top_api::ForceLoopMode getForceLoopMode() override;

    /// Refuses a window whose ends are the wrong way round.
    ESPCResult overridePowerSettings(bool txRequestedStatusBarOn,
                                     zyr_top_api::TxRequestedStatus txRequestedStatus,
                                     bool targetRfInputPowerBarOn, int targetRfInputPower,
                                     bool rfOutputPowerBarOn, int minRfOutputPower, int maxRfOutputPower,
                                     bool ignorePowerLimits,
                                     zyr_top_api::ForceLoopMode forceLoopMode) override;

  private:
    TransmitterState& transmitter() const { return channel().transmitter; }
};

} // namespace zyr_simulation
