#pragma once

#include "ISpcSimulator.h"
#include "SimulatedCollaborator.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kSpcSimulatorOperations{"ISpcSimulator", "simulate"};

/// The simulator of power control of a channel: sweeps the level that is seen in place of the received one
/// as long as it has power control's object. The level takes a step in a second, and stays at the end of the
/// sweep.
class SimulatedSpcSimulator final : public SimulatedCollaborator<ISpcSimulator, kSpcSimulatorOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// Refuses a mode above 2.
    ESPCResult simulate(unsigned mode, int min, int max, double start, double step) override;

    /// True as long as an object is under simulation, also when the sweep has been stopped.
    bool isSimulating() override;
    ISpcSimulatedObject* getSimulatedObject() override;
    void setSimulated(ISpcSimulatedObject* object, bool simulated) override;

  private:
    ISpcSimulatedObject* m_object = nullptr;
};

} // namespace zyr_simulation
