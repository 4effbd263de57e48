#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace zyr_gateway
{

/// What must be done one at a time: a queue of jobs with a thread of its own. A thread that finds nobody in
/// the lane may do its job itself. Any thread may call any operation but the destructor.
class Lane
{
  public:
    /// A job. Must not throw.
    using Job = std::function<void()>;

    /// @param maxWaiting  jobs that may wait for their turn
    explicit Lane(std::size_t maxWaiting);
    /// Does all jobs that wait.
    ~Lane();
    Lane(const Lane&) = delete;
    Lane& operator=(const Lane&) = delete;

    /// Does the job at once, on the thread that calls, if nobody is in the lane and nobody waits. False
    /// otherwise, with nothing done.
    template <class Call>
    bool tryRun(const Call& job)
    {
        if (!tryEnter()) {
            return false;
        }
        const Leaving leaving(*this);
        job();
        return true;
    }

    /// Whether nobody is in the lane and nobody waits, at this moment.
    [[nodiscard]] bool isFree() const;

    /// Does the job when its turn comes. False, with nothing done, when too many wait already.
    [[nodiscard]] bool run(Job job);

    /// As `run`, for a job that is the next part of one that has been taken before: there is always room.
    void goOn(Job job);

  private:
    // Leaves the lane with the scope.
    class Leaving
    {
      public:
        explicit Leaving(Lane& lane) : m_lane(lane) {}
        ~Leaving() { m_lane.leave(); }
        Leaving(const Leaving&) = delete;
        Leaving& operator=(const Leaving&) = delete;

      private:
        Lane& m_lane;
    };

    bool tryEnter();
    void leave();
    void work();

    const std::size_t m_maxWaiting;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Job> m_waiting;
    bool m_isTaken = false;
    bool m_isEnding = false;
    std::thread m_thread;
};

} // namespace zyr_gateway
