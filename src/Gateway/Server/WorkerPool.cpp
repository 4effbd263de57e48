#include "WorkerPool.h"

#include <utility>

namespace zyr_gateway
{

WorkerPool::WorkerPool(std::size_t maxThreads) : m_maxThreads(maxThreads) {}

WorkerPool::~WorkerPool()
{
    close();
    for (std::thread& thread : m_threads) {
        thread.join();
    }
}

bool WorkerPool::run(std::function<void()> task)
{
    const std::lock_guard lock(m_mutex);
    if (m_isClosed) {
        return false;
    }
    // An idle thread may already be spoken for by a task that it has not fetched yet.
    if (m_waiting.size() >= m_idleThreads && m_threads.size() < m_maxThreads) {
        m_threads.emplace_back([this] { work(); });
    }
    m_waiting.push_back(std::move(task));
    m_taskCame.notify_one();
    return true;
}

void WorkerPool::close()
{
    const std::lock_guard lock(m_mutex);
    m_isClosed = true;
    m_taskCame.notify_all();
}

bool WorkerPool::waitUntilIdle(std::chrono::milliseconds timeout)
{
    std::unique_lock lock(m_mutex);
    return m_becameIdle.wait_for(lock, timeout, [this] { return m_waiting.empty() && m_running == 0; });
}

void WorkerPool::work()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        ++m_idleThreads;
        m_taskCame.wait(lock, [this] { return !m_waiting.empty() || m_isClosed; });
        --m_idleThreads;
        if (m_waiting.empty()) {
            return;
        }
        const std::function<void()> task = std::move(m_waiting.front());
        m_waiting.pop_front();
        ++m_running;
        lock.unlock();
        task();
        lock.lock();
        --m_running;
        if (m_waiting.empty() && m_running == 0) {
            m_becameIdle.notify_all();
        }
    }
}

} // namespace zyr_gateway
