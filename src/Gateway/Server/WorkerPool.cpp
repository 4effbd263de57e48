#include "WorkerPool.h"

#include <chrono>
#include <utility>

namespace zyr_gateway
{

namespace
{

constexpr std::chrono::seconds kIdlePatience{2};

} // namespace

WorkerPool::WorkerPool(std::size_t maxThreads) : m_maxThreads(maxThreads) {}

WorkerPool::~WorkerPool()
{
    close();
    for (Worker& worker : m_workers) {
        worker.thread.join();
    }
}

bool WorkerPool::run(std::function<void()> task)
{
    const std::lock_guard lock(m_mutex);
    if (m_isClosed) {
        return false;
    }
    // An idle thread may already be spoken for by a task that it has not fetched yet.
    if (m_waiting.size() >= m_idleThreads && m_threads < m_maxThreads) {
        addWorker();
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

void WorkerPool::addWorker()
{
    m_workers.remove_if([](Worker& worker) {
        const bool hasEnded = worker.hasEnded;
        if (hasEnded) {
            worker.thread.join();
        }
        return hasEnded;
    });
    Worker& worker = m_workers.emplace_back();
    try {
        worker.thread = std::thread([this, &worker] { work(worker); });
    } catch (...) {
        m_workers.pop_back();
        throw;
    }
    ++m_threads;
}

void WorkerPool::work(Worker& self)
{
    std::unique_lock lock(m_mutex);
    while (true) {
        ++m_idleThreads;
        m_taskCame.wait_for(lock, kIdlePatience, [this] { return !m_waiting.empty() || m_isClosed; });
        --m_idleThreads;
        if (m_waiting.empty()) {
            break;
        }
        std::function<void()> task = std::move(m_waiting.front());
        m_waiting.pop_front();
        lock.unlock();
        task();
        task = nullptr;
        lock.lock();
    }
    --m_threads;
    self.hasEnded = true;
}

} // namespace zyr_gateway
