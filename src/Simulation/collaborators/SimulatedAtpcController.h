#pragma once

#include "IAtpcController.h"
#include "SimulatedCollaborator.h"

#include <cstdint>
#include <memory>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kAtpcControllerOperations{"IAtpcController"};

/// Automatic transmit power control of a channel. Powers are in tenths of a dBm.
class SimulatedAtpcController final : public SimulatedCollaborator<IAtpcController, kAtpcControllerOperations>
{
  public:
    SimulatedAtpcController(NodeState& node, unsigned channel);
    ~SimulatedAtpcController() override;

    SimulatedAtpcController(const SimulatedAtpcController&) = delete;
    SimulatedAtpcController& operator=(const SimulatedAtpcController&) = delete;

    /// The level that the far end shall receive.
    std::int32_t getTargetInputPower() override;
    ISpcSimulatedObject* getSimulatedObject() override;

    /// Ends the simulation of the controller's own object; any other is left alone.
    void release(ISpcSimulatedObject* object) override;
    void setGain(unsigned kind, double value) override;

    /// 0 for a gain that was never set.
    double getGain(unsigned kind) override;

  private:
    std::unique_ptr<ISpcSimulatedObject> m_object;
};

} // namespace zyr_simulation
