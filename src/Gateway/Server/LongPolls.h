#pragma once

#include "WorkerPool.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <thread>

namespace zyr_gateway
{

/// Long polls: calls that hang in the commands, each on a thread of its own, for clients that may leave.
///
/// A poll whose client has left goes on hanging for nobody. When there are too many of these, or one of them
/// has hung for a while, all polls are released, and those whose clients are still there are put back without
/// a word to them. A release that a client has asked for ends all polls that were begun before it.
class LongPolls
{
  public:
    /// How many there may be at a time.
    struct Limits
    {
        std::size_t polls = 64;                      ///< of clients that are there
        std::size_t orphans = 16;                    ///< of clients that have left; more are released at once
        std::size_t threads = 128;                   ///< both together, while the releasing is held up
        std::chrono::milliseconds orphanTime{1'000}; ///< one that hangs for longer is released
    };

    /// How a call has ended.
    enum class Outcome
    {
        Answered,
        Released ///< its client is to be told that unless it is put back
    };

    /// One poll.
    struct Poll
    {
        /// Hangs in the command; called again when the poll is put back.
        std::function<Outcome()> call;
        /// Hands the outcome of the last call to the client.
        std::function<void()> finish;
    };

    /// A poll that hangs, for `leave`.
    using Handle = std::uint64_t;

    /// @param release releases all calls that hang, as far as it can; must not throw
    LongPolls(const Limits& limits, std::function<void()> release);
    /// Stops.
    ~LongPolls();
    LongPolls(const LongPolls&) = delete;
    LongPolls& operator=(const LongPolls&) = delete;

    /// Starts a poll on a thread of its own; neither of its functions may throw. False, with nothing done,
    /// when there are too many.
    /// @param handle what to call `leave` with
    /// @throws std::system_error when a thread cannot be had
    [[nodiscard]] bool start(Poll poll, Handle& handle);

    /// The poll's client has left. Nothing happens if the poll has ended.
    void leave(Handle handle);

    /// To be called when a client has asked for a release, before that release and after it, one release at a
    /// time. In between, a poll may have been on its way back; the second call sees to it that it ends too,
    /// unless the release has failed.
    void releaseBegins();
    void releaseEnded(bool hasSucceeded);

    /// Takes no more polls, and releases all until none hangs any more.
    void stop();

    /// How many polls hang for clients that are there, and for nobody. Any thread.
    [[nodiscard]] std::size_t polls() const;
    [[nodiscard]] std::size_t orphans() const;

  private:
    using Clock = std::chrono::steady_clock;

    struct Hanging
    {
        Handle handle;
        Poll poll;
        std::uint64_t release; ///< the last one that a client had asked for when the poll began
        std::optional<Clock::time_point> leftAt = std::nullopt;
    };
    using Place = std::list<Hanging>::iterator;

    void hang(Place place);
    [[nodiscard]] bool isToEnd(const Hanging& hanging) const;
    [[nodiscard]] bool needsRelease() const;
    [[nodiscard]] std::optional<Clock::time_point> firstLeaving() const;
    void waitForWork(std::unique_lock<std::mutex>& lock);
    void releaseWhatIsToEnd();

    const Limits m_limits;
    const std::function<void()> m_release;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::list<Hanging> m_hanging;
    Handle m_lastHandle = 0;
    std::size_t m_orphans = 0;
    std::uint64_t m_releases = 0; ///< that clients have asked for
    bool m_isReleaseChecked = true;
    bool m_isStopping = false;
    bool m_isEnding = false;
    WorkerPool m_threads;
    std::thread m_releaser;
};

} // namespace zyr_gateway
