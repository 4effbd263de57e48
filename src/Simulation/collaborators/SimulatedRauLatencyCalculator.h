#pragma once

#include "IRauLatencyCalculator.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kRauLatencyCalculatorOperations{
    "IRauLatencyCalculator", "getCurrentLatency", "calculateAndSetDspDelayCompensation"};

/// The greatest step of a secondary path's latency that the DSP takes without a reset.
inline constexpr std::int64_t kGreatestLatencyStep_ns = 100;

/// The time that one sample of a receive chain's delay stands for.
inline constexpr std::int64_t kLatencySample_ns = 10;

/// The latency of a channel's radio path, in nanoseconds.
class SimulatedRauLatencyCalculator final
    : public SimulatedCollaborator<IRauLatencyCalculator, kRauLatencyCalculatorOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// The latency of the hop with that of the slowest path; valid while the link is up.
    zyr_top_api::ETIResult getCurrentLatency(bool& first, bool& isValid, std::uint32_t& third,
                                             std::uint32_t& latency) override;

    /// Takes the latencies that are given and keeps the others, which are 0 at the start. A step of more than
    /// `kGreatestLatencyStep_ns` in one of them needs a reset (0x8013) unless the DSP has recovered since
    /// that was asked for. The receive chains' delays follow: each waits for the slowest one. Refused by a
    /// radio type that can't.
    zyr_top_api::ETIResult
    calculateAndSetDspDelayCompensation(zyr_top_api::RauLatencyRequest request) override;
};

} // namespace zyr_simulation
