#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace zyr_platform
{

/// A clock with timers: real time in a node's process, virtual time in tests.
/// All operations may be called from any thread, also from a timer's function.
class TimeSource
{
  public:
    using TimerId = std::uint64_t;

    virtual ~TimeSource() = default;

    /// Time passed since a fixed but arbitrary start.
    virtual std::chrono::nanoseconds now() const = 0;

    /// Calls the function once, when so much time has passed. Functions that are due at the same time run in
    /// the order in which they were scheduled, never two at once.
    /// @return the timer's number, never 0
    virtual TimerId schedule(std::chrono::nanoseconds delay, std::function<void()> function) = 0;

    /// Takes a timer back. False if it has run, is running or was never there.
    virtual bool cancel(TimerId timer) = 0;
};

} // namespace zyr_platform
