#include "PasswordChecker.h"

#include <utility>

namespace zyr_gateway
{

namespace
{

/// Enough for a burst of new clients, few enough that the last of them is answered within seconds.
constexpr std::size_t kMaxWaiting = 64;

} // namespace

PasswordChecker::PasswordChecker() : m_thread([this] { run(); }) {}

PasswordChecker::~PasswordChecker()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

bool PasswordChecker::submit(std::function<void()> check)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.size() >= kMaxWaiting) {
            return false;
        }
        m_waiting.push_back(std::move(check));
    }
    m_changed.notify_one();
    return true;
}

void PasswordChecker::run()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_ending || !m_waiting.empty(); });
        if (m_ending) {
            return;
        }
        const std::function<void()> check = std::move(m_waiting.front());
        m_waiting.pop_front();
        lock.unlock();
        check();
        lock.lock();
    }
}

} // namespace zyr_gateway
