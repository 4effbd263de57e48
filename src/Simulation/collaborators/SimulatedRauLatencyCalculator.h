#pragma once

#include "IRauLatencyCalculator.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kRauLatencyCalculatorOperations{
    "IRauLatencyCalculator", "getCurrentLatency", "calculateAndSetDspDelayCompensation"};

/// The latency of a channel's radio path, in nanoseconds.
class SimulatedRauLatencyCalculator final
    : public SimulatedCollaborator<IRauLatencyCalculator, kRauLatencyCalculatorOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// The latency of the hop with the compensation; valid while the link is up.
    zyr_top_api::ETIResult getCurrentLatency(bool& first, bool& isValid, std::uint32_t& third,
                                             std::uint32_t& latency) override;

    /// The compensation is the greatest of the given latencies. Refused by a radio type that can't. A second
    /// one needs a reset (0x8013) unless the DSP has recovered since the first.
    zyr_top_api::ETIResult
    calculateAndSetDspDelayCompensation(zyr_top_api::RauLatencyRequest request) override;
};

} // namespace zyr_simulation
