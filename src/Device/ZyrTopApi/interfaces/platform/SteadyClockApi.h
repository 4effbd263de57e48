#pragma once

#include "Export.h"

#include <chrono>

namespace Util
{

/// The clock by which waits are measured: monotonic, never set. The clock in force can be replaced together
/// with the sleeper, so that waits can run on virtual time. May be called from any thread.
class ZYR_EXPORT SteadyClockApi
{
  public:
    virtual ~SteadyClockApi() = default;

    /// The clock in force.
    static SteadyClockApi& get();

    /// Time passed since a fixed but arbitrary start.
    virtual std::chrono::nanoseconds now() = 0;
};

} // namespace Util
