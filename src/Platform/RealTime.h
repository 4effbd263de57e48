#pragma once

#include "TimeSource.h"
#include "TimerQueue.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace zyr_platform
{

/// The time of the host: the steady clock, and timers that run on one thread. What a timer's function throws
/// is traced at level 1 and goes no further.
class RealTime : public TimeSource
{
  public:
    RealTime();

    /// Waits for the function that runs and drops the timers that are left. Not to be called by a timer's
    /// function.
    ~RealTime() override;

    RealTime(const RealTime&) = delete;
    RealTime& operator=(const RealTime&) = delete;

    std::chrono::nanoseconds now() const override;
    TimerId schedule(std::chrono::nanoseconds delay, std::function<void()> function) override;
    bool cancel(TimerId timer) override;

  private:
    void serveTimers();
    void waitForWork(std::unique_lock<std::mutex>& lock);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    TimerQueue m_timers;
    bool m_isEnding = false;
    std::thread m_thread; ///< last, so that it starts when all else stands
};

} // namespace zyr_platform
