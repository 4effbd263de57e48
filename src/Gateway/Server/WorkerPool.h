#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <list>
#include <mutex>
#include <thread>

namespace zyr_gateway
{

/// Runs tasks on threads of its own: a task that finds no idle thread gets a new one, up to a limit, so that
/// tasks that block for long hold up no other task. A thread that has had nothing to do for a while ends. Any
/// thread may call any operation but the destructor.
class WorkerPool
{
  public:
    /// @param maxThreads  further tasks wait in a queue
    explicit WorkerPool(std::size_t maxThreads);

    /// Closes, and waits for all tasks.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    /// Runs the task, which must not throw, on one of the threads. False, with the task left out, once the
    /// pool is closed.
    /// @throws std::system_error when a thread cannot be had, with the task left out
    bool run(std::function<void()> task);

    /// Takes no more tasks. Those that were taken still run.
    void close();

  private:
    struct Worker
    {
        std::thread thread;
        std::atomic<bool> hasEnded = false;
    };

    void addWorker();
    void work(Worker& self);

    const std::size_t m_maxThreads;
    std::mutex m_mutex;
    std::condition_variable m_taskCame;
    std::deque<std::function<void()>> m_waiting;
    std::size_t m_idleThreads = 0;
    std::size_t m_threads = 0;
    bool m_isClosed = false;
    std::list<Worker> m_workers; ///< those that have ended are taken off when the next one comes
};

} // namespace zyr_gateway
