#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace zyr_gateway
{

/// Runs tasks on threads of its own: a task that finds no idle thread gets a new one, up to a limit, so that
/// tasks that block for long hold up no other task. Any thread may call any operation but the destructor.
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
    bool run(std::function<void()> task);

    /// Takes no more tasks. Those that were taken still run.
    void close();

    /// Waits until no task is running or waiting, at most so long. True if that is so.
    bool waitUntilIdle(std::chrono::milliseconds timeout);

  private:
    void work();

    const std::size_t m_maxThreads;
    std::mutex m_mutex;
    std::condition_variable m_taskCame;
    std::condition_variable m_becameIdle;
    std::deque<std::function<void()>> m_waiting;
    std::size_t m_idleThreads = 0;
    std::size_t m_running = 0;
    bool m_isClosed = false;
    std::vector<std::thread> m_threads;
};

} // namespace zyr_gateway
