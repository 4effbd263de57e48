#pragma once

#include "ITapsController.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kTapsControllerOperations{
    "ITapsController", "setTapsEnable", "setIdleRateOffset", "setIdleRateThresholdFactor",
    "setKvalue",       "setHrlbEnabled"};

/// TAPS of a channel: keeps what it is given.
class SimulatedTapsController final : public SimulatedCollaborator<ITapsController, kTapsControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    ESPCResult setTapsEnable(bool enable) override;
    bool getTapsEnable() override;
    ESPCResult setIdleRateOffset(std::int32_t value, int) override;
    ESPCResult setIdleRateThresholdFactor(double value) override;
    ESPCResult setKvalue(std::int32_t value) override;
    ESPCResult setHrlbEnabled(bool enabled) override;
    std::int32_t getIdleRateOffset() override;
    double getIdleRateThresholdFactor() override;
    std::int32_t getKvalue() override;
    bool getHrlbEnabled() override;
};

} // namespace zyr_simulation
