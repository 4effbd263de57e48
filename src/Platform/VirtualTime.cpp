#include "VirtualTime.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace zyr_platform
{

namespace
{

/// A flag that is up as long as this lives, also when an exception passes.
class Raised
{
  public:
    explicit Raised(bool& flag) : m_flag(flag) { m_flag = true; }
    ~Raised() { m_flag = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    bool& m_flag;
};

} // namespace

VirtualTime::VirtualTime() = default;

TimeSource::TimerId VirtualTime::schedule(std::chrono::nanoseconds delay, std::function<void()> function)
{
    const std::scoped_lock lock(m_mutex);
    return m_timers.add(now(), delay, std::move(function));
}

bool VirtualTime::cancel(TimerId timer)
{
    TimerQueue::Function function;
    const std::scoped_lock lock(m_mutex);
    function = m_timers.take(timer);
    return static_cast<bool>(function);
}

void VirtualTime::advance(std::chrono::nanoseconds duration)
{
    if (duration < std::chrono::nanoseconds(0)) {
        throw std::invalid_argument("time can't go back");
    }
    const std::scoped_lock turn(m_turn);
    const std::chrono::nanoseconds end = later(now(), duration);
    if (m_isAdvancing) {
        moveTo(end);
        return;
    }
    const Raised advancing(m_isAdvancing);
    do {
        while (const auto timer = takeDue(std::max(end, now()))) {
            moveTo(timer->due);
            tellObservers();
            timer->function();
        }
        moveTo(end);
        tellObservers();
    } while (hasDue());
}

Registration VirtualTime::onAdvance(Observer observer)
{
    const std::scoped_lock turn(m_turn);
    const auto entry = std::make_shared<const Observer>(std::move(observer));
    m_observers.push_back(entry);
    return Registration([this, entry] {
        const std::scoped_lock withdrawalTurn(m_turn);
        std::erase(m_observers, entry);
    });
}

std::vector<std::chrono::milliseconds> VirtualTime::sleeps() const
{
    const std::scoped_lock lock(m_mutex);
    return m_sleeps;
}

std::optional<TimerQueue::Timer> VirtualTime::takeDue(std::chrono::nanoseconds time)
{
    const std::scoped_lock lock(m_mutex);
    return m_timers.takeDue(time);
}

bool VirtualTime::hasDue() const
{
    const std::scoped_lock lock(m_mutex);
    const auto due = m_timers.nextDue();
    return due && *due <= now();
}

// The clock never goes back: a function that slept may have moved it beyond.
void VirtualTime::moveTo(std::chrono::nanoseconds time)
{
    m_now = std::max(time, now());
}

void VirtualTime::tellObservers()
{
    while (m_told != now()) {
        m_told = now();
        const auto observers = m_observers;
        for (const auto& observer : observers) {
            if (std::ranges::find(m_observers, observer) != m_observers.end()) {
                (*observer)(m_told);
            }
        }
    }
}

void VirtualTime::Sleeper::sleep(std::uint32_t milliSec)
{
    {
        const std::scoped_lock lock(m_time.m_mutex);
        m_time.m_sleeps.emplace_back(milliSec);
    }
    m_time.advance(std::chrono::milliseconds(milliSec));
}

} // namespace zyr_platform
