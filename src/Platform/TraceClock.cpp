#include "TraceClock.h"

#include <atomic>

namespace zyr_platform
{

namespace
{

constinit std::atomic<std::chrono::nanoseconds> timeShift{std::chrono::nanoseconds{0}};

} // namespace

void shiftTraceTime(std::chrono::nanoseconds shift)
{
    timeShift = shift;
}

std::chrono::system_clock::time_point traceTime()
{
    return std::chrono::system_clock::now() + timeShift.load(std::memory_order_relaxed);
}

} // namespace zyr_platform
