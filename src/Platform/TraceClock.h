#pragma once

#include <chrono>

namespace zyr_platform
{

// The clock that stamps the messages of the trace: the host's, or that of a node whose clock differs from it.
// Both functions may be called from any thread.

/// Lets the stamps be ahead of the host's time by so much, from now on.
void shiftTraceTime(std::chrono::nanoseconds shift);

/// The time for a message that is written now.
std::chrono::system_clock::time_point traceTime();

} // namespace zyr_platform
