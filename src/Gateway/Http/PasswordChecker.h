#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace zyr_gateway
{

/// A thread that checks passwords one after the other, because a salted hash takes tens of milliseconds, in
/// which the thread that does input and output must not stand still.
class PasswordChecker
{
  public:
    PasswordChecker();
    /// Waits for the check that runs; those that wait are dropped.
    ~PasswordChecker();
    PasswordChecker(const PasswordChecker&) = delete;
    PasswordChecker& operator=(const PasswordChecker&) = delete;

    /// Queues a check. False when too many wait already; the check is then not run.
    [[nodiscard]] bool submit(std::function<void()> check);

  private:
    void run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_waiting;
    bool m_ending = false;
    std::thread m_thread;
};

} // namespace zyr_gateway
