#include "TimerQueue.h"

#include <algorithm>
#include <stdexcept>

namespace zyr_platform
{

TimeSource::TimerId TimerQueue::add(std::chrono::nanoseconds now, std::chrono::nanoseconds delay,
                                    Function function)
{
    if (!function) {
        throw std::invalid_argument("a timer needs a function");
    }
    const TimeSource::TimerId timer = ++m_lastId;
    m_timers.emplace(std::pair(later(now, delay), timer), std::move(function));
    return timer;
}

TimerQueue::Function TimerQueue::take(TimeSource::TimerId timer)
{
    const auto entry = std::ranges::find(m_timers, timer, [](const auto& each) { return each.first.second; });
    if (entry == m_timers.end()) {
        return {};
    }
    return std::move(m_timers.extract(entry).mapped());
}

std::optional<TimerQueue::Timer> TimerQueue::takeDue(std::chrono::nanoseconds time)
{
    if (m_timers.empty() || m_timers.begin()->first.first > time) {
        return std::nullopt;
    }
    auto entry = m_timers.extract(m_timers.begin());
    return Timer{entry.key().first, std::move(entry.mapped())};
}

std::optional<std::chrono::nanoseconds> TimerQueue::nextDue() const
{
    if (m_timers.empty()) {
        return std::nullopt;
    }
    return m_timers.begin()->first.first;
}

std::chrono::nanoseconds later(std::chrono::nanoseconds time, std::chrono::nanoseconds duration)
{
    const auto positive = std::max(duration, std::chrono::nanoseconds(0));
    const auto end = std::chrono::nanoseconds::max();
    return positive > end - time ? end : time + positive;
}

} // namespace zyr_platform
