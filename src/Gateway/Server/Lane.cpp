#include "Lane.h"

#include <utility>

namespace zyr_gateway
{

Lane::Lane(std::size_t maxWaiting) : m_maxWaiting(maxWaiting)
{
    m_thread = std::thread([this] { work(); });
}

Lane::~Lane()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

bool Lane::isFree() const
{
    const std::lock_guard lock(m_mutex);
    return !m_isTaken && m_waiting.empty();
}

bool Lane::run(Job job)
{
    const std::lock_guard lock(m_mutex);
    if (m_waiting.size() >= m_maxWaiting) {
        return false;
    }
    m_waiting.push_back(std::move(job));
    m_changed.notify_one();
    return true;
}

void Lane::goOn(Job job)
{
    const std::lock_guard lock(m_mutex);
    m_waiting.push_back(std::move(job));
    m_changed.notify_one();
}

bool Lane::tryEnter()
{
    const std::lock_guard lock(m_mutex);
    if (m_isTaken || !m_waiting.empty()) {
        return false;
    }
    m_isTaken = true;
    return true;
}

void Lane::leave()
{
    const std::lock_guard lock(m_mutex);
    m_isTaken = false;
    if (!m_waiting.empty()) {
        m_changed.notify_one();
    }
}

void Lane::work()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return !m_isTaken && (!m_waiting.empty() || m_isEnding); });
        if (m_waiting.empty()) {
            return;
        }
        Job job = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_isTaken = true;
        lock.unlock();
        job();
        job = nullptr; // what it holds may need the lane
        lock.lock();
        m_isTaken = false;
    }
}

} // namespace zyr_gateway
