#pragma once

#include "TimeSource.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace zyr_platform
{

/// Timers in the order in which they are due; those due at the same time in the order in which they were
/// added. Not for several threads.
class TimerQueue
{
  public:
    using Function = std::function<void()>;

    struct Timer
    {
        std::chrono::nanoseconds due;
        Function function;
    };

    /// Adds a timer that is due so much later than now; a delay below 0 counts as 0, one beyond the clock's
    /// end as the end.
    /// @throws std::invalid_argument if the function is empty
    TimeSource::TimerId add(std::chrono::nanoseconds now, std::chrono::nanoseconds delay, Function function);

    /// Takes a timer out by its number. The empty function if it isn't there.
    Function take(TimeSource::TimerId timer);

    /// Takes the first timer out if it is due at this time.
    std::optional<Timer> takeDue(std::chrono::nanoseconds time);

    /// When the first timer is due; none if there is no timer.
    std::optional<std::chrono::nanoseconds> nextDue() const;

  private:
    std::map<std::pair<std::chrono::nanoseconds, TimeSource::TimerId>, Function> m_timers;
    TimeSource::TimerId m_lastId = 0;
};

/// The time so much later, at most the clock's end. A duration below 0 counts as 0.
std::chrono::nanoseconds later(std::chrono::nanoseconds time, std::chrono::nanoseconds duration);

} // namespace zyr_platform
