#pragma once

#include "IRauHandler.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kRauHandlerOperations{
    "IRauHandler",      "triggerRestart",    "endRestart",   "setPowerSupplied",
    "setActiveSubBand", "setTxIfSwitch2T2R", "setPowerMode", "getPowerMode"};

/// The radio unit of a channel with its services; the same object serves as `IRadio`. A unit that isn't up
/// refuses what it would have to carry out.
class SimulatedRauHandler final : public SimulatedCollaborator<IRauHandler, kRauHandlerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// Whether the unit answers: it is there, has power and isn't restarting.
    bool isAvailable() override;

    /// The restart takes `kRadioRestartTime`; it fails if the unit isn't there or has no power at its end.
    /// Refused during a restart. A fault makes it a restart that failed at once, with the unit left as it
    /// was.
    zyr_top_api::ERAUHResult triggerRestart(unsigned restartType) override;
    zyr_top_api::RadioRestartStatus getRestartStatus() override;

    /// Refused during a restart, which goes on.
    zyr_top_api::ERAUHResult endRestart() override;
    bool isPowerSupplied() override;

    /// Any number but 0 gives power; a unit that had none is up `kRadioStartTime` later.
    zyr_top_api::ERAUHResult setPowerSupplied(std::uint32_t value) override;

    /// 0 for the whole band, or one of its `kSubBands` parts. Frequencies that are set already stay.
    zyr_top_api::ETIResult setActiveSubBand(unsigned char subBand) override;

    /// Refused by a unit with one transmitter.
    zyr_top_api::ERAUHResult setTxIfSwitch2T2R(unsigned mode, unsigned channelIndex) override;

    /// Transceiver 255 stands for both, 0 and others for none. The mode's lower two bits are for the first
    /// one, the next two for the second. Two zero bits switch a transceiver on, all others switch it off: on
    /// a unit with two of them half the signal is gone then, in both directions, and all of it with both off.
    zyr_top_api::ERAUHResult setPowerMode(zyr_top_api::RauPowerMode mode) override;
    zyr_top_api::ERAUHResult getPowerMode(unsigned char trxId, unsigned char& powerMode) override;
    bool isRau2T2R() override;

  private:
    RadioState& radio() const { return channel().radio; }
};

} // namespace zyr_simulation
