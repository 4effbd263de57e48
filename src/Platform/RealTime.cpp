#include "RealTime.h"

#include "TylTrace.h"

#include <csignal>
#include <exception>
#include <string_view>
#include <utility>

#include <pthread.h>

namespace zyr_platform
{

namespace
{

constinit TylTrace timerTrace("ZYR.RealTime", 3, TylTraceHdrOption_Default);

void traceTimerFailure(std::string_view text)
{
    timerTrace.logMsg(1, {__builtin_FILE(), __builtin_LINE(), "serveTimers"}, text);
}

void run(const TimerQueue::Function& function) noexcept
{
    try {
        function();
    } catch (const std::exception& exception) {
        traceTimerFailure(exception.what());
    } catch (...) {
        traceTimerFailure("a timer's function threw an exception");
    }
}

// Signals are for the threads that wait for them.
void blockSignals()
{
    sigset_t all{};
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

} // namespace

RealTime::RealTime() : m_thread([this] { serveTimers(); }) {}

RealTime::~RealTime()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

std::chrono::nanoseconds RealTime::now() const
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

TimeSource::TimerId RealTime::schedule(std::chrono::nanoseconds delay, std::function<void()> function)
{
    TimerId timer = 0;
    {
        const std::scoped_lock lock(m_mutex);
        timer = m_timers.add(now(), delay, std::move(function));
    }
    m_changed.notify_one();
    return timer;
}

bool RealTime::cancel(TimerId timer)
{
    TimerQueue::Function function;
    const std::scoped_lock lock(m_mutex);
    function = m_timers.take(timer);
    return static_cast<bool>(function);
}

void RealTime::serveTimers()
{
    blockSignals();
    std::unique_lock lock(m_mutex);
    while (!m_isEnding) {
        if (auto timer = m_timers.takeDue(now())) {
            lock.unlock();
            run(timer->function);
            timer.reset(); // what the function holds goes without our lock
            lock.lock();
        } else {
            waitForWork(lock);
        }
    }
}

void RealTime::waitForWork(std::unique_lock<std::mutex>& lock)
{
    if (const auto due = m_timers.nextDue()) {
        m_changed.wait_until(lock, std::chrono::steady_clock::time_point(*due));
    } else {
        m_changed.wait(lock);
    }
}

} // namespace zyr_platform
