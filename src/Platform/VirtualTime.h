#pragma once

#include "Registration.h"
#include "ServiceInForce.h"
#include "TimeSource.h"
#include "TimerQueue.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace zyr_platform
{

/// A time that passes only when it is told to, for tests and simulation. As long as it lives it is the
/// sleeper and the steady clock in force, so that what commands wait for passes at once.
///
/// Time starts at 0. Whoever advances it runs the timers that fall due on the way, each at its own time, in
/// the order of `TimeSource`; the observers are told before a timer runs. A timer's function or an observer
/// that advances time itself moves the clock alone: timers that fall due by that run late, behind it, as they
/// would on a real clock. An exception of a function leaves `advance`.
///
/// All operations may be called from any thread. Threads that advance time do so one behind the other, so a
/// timer's function must not wait for another thread that sleeps.
class VirtualTime : public TimeSource
{
  public:
    using Observer = std::function<void(std::chrono::nanoseconds now)>;

    VirtualTime();
    VirtualTime(const VirtualTime&) = delete;
    VirtualTime& operator=(const VirtualTime&) = delete;

    std::chrono::nanoseconds now() const override { return m_now.load(); }
    TimerId schedule(std::chrono::nanoseconds delay, std::function<void()> function) override;
    bool cancel(TimerId timer) override;

    /// Lets so much time pass. 0 runs what is due now.
    /// @throws std::invalid_argument if the duration is below 0
    void advance(std::chrono::nanoseconds duration);

    /// Has the function told the time whenever the clock has moved, as long as the registration lives. The
    /// function must not advance time on every call, for that would have no end.
    Registration onAdvance(Observer observer);

    /// The sleeps that were asked of the sleeper so far, in order.
    std::vector<std::chrono::milliseconds> sleeps() const;

  private:
    class Sleeper : public Util::DefaultSleepApi
    {
      public:
        explicit Sleeper(VirtualTime& time) : m_time(time) {}
        void sleep(std::uint32_t milliSec) override;

      private:
        VirtualTime& m_time;
    };

    class Clock : public Util::SteadyClockApi
    {
      public:
        explicit Clock(const VirtualTime& time) : m_time(time) {}
        std::chrono::nanoseconds now() override { return m_time.now(); }

      private:
        const VirtualTime& m_time;
    };

    std::optional<TimerQueue::Timer> takeDue(std::chrono::nanoseconds time);
    bool hasDue() const;
    void moveTo(std::chrono::nanoseconds time);
    void tellObservers();

    std::recursive_mutex m_turn; ///< whose holder moves the clock; taken before the other mutex
    bool m_isAdvancing = false;
    std::chrono::nanoseconds m_told{0}; ///< the time that the observers know
    std::vector<std::shared_ptr<const Observer>> m_observers;

    mutable std::mutex m_mutex; ///< guards timers and sleeps
    TimerQueue m_timers;
    std::vector<std::chrono::milliseconds> m_sleeps;

    std::atomic<std::chrono::nanoseconds> m_now{std::chrono::nanoseconds(0)};
    Sleeper m_sleeper{*this};
    Clock m_clock{*this};
    Replacement<Util::DefaultSleepApi> m_sleeperInForce{m_sleeper};
    Replacement<Util::SteadyClockApi> m_clockInForce{m_clock};
};

} // namespace zyr_platform
