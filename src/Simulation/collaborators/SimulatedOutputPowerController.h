#pragma once

#include "IOutputPowerController.h"
#include "SimulatedCollaborator.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kOutputPowerControllerOperations{"IOutputPowerController"};

/// The transmitter of a channel. Its status follows the request after `kTransmitterSwitchTime`.
class SimulatedOutputPowerController final
    : public SimulatedCollaborator<IOutputPowerController, kOutputPowerControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    zyr_top_api::ETxPowerActualStatus getTxStatus() override;
    void setGain(unsigned loop, unsigned kind, double value) override;

    /// 0 for a gain that was never set.
    double getGain(unsigned loop, unsigned kind) override;
};

} // namespace zyr_simulation
