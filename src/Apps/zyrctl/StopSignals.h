#pragma once

#include <chrono>
#include <csignal>

namespace zyr_ctl
{

/// Keeps SIGINT and SIGTERM away while it lives, and tells when one has come.
class StopSignals
{
  public:
    StopSignals()
    {
        sigemptyset(&m_signals);
        sigaddset(&m_signals, SIGINT);
        sigaddset(&m_signals, SIGTERM);
        pthread_sigmask(SIG_BLOCK, &m_signals, &m_before);
    }
    ~StopSignals() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// Waits until a signal comes, for so long at most; true if one has come.
    bool hasComeWithin(std::chrono::milliseconds duration) const
    {
        constexpr long nanosecondsPerMillisecond = 1'000'000;
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(duration);
        const timespec limit{.tv_sec = seconds.count(),
                             .tv_nsec = (duration - seconds).count() * nanosecondsPerMillisecond};
        return sigtimedwait(&m_signals, nullptr, &limit) > 0;
    }

  private:
    sigset_t m_signals{};
    sigset_t m_before{};
};

} // namespace zyr_ctl
