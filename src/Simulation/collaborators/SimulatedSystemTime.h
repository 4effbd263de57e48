#pragma once

#include "SimulatedCollaborator.h"
#include "SystemTimeApi.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kSystemTimeOperations{"SystemTimeApi", "access", "stime"};

/// The node's own wall clock. It starts as the host's; setting it leaves the host's alone, and the stamps of
/// the trace follow it. An order to fail gives what errno says.
class SimulatedSystemTime final : public SimulatedCollaborator<Util::SystemTimeApi, kSystemTimeOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// There is "/dev/rtc" and nothing else.
    int access(const char* path, int mode) override;
    std::time_t time() override;
    int stime(const std::time_t* seconds) override;
};

} // namespace zyr_simulation
