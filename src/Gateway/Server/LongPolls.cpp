#include "LongPolls.h"

#include <algorithm>
#include <utility>

namespace zyr_gateway
{

namespace
{

/// How long released calls are given to come back before they are released again.
constexpr std::chrono::milliseconds kFirstPatience{20};
constexpr std::chrono::milliseconds kLongestPatience{1'000};

} // namespace

LongPolls::LongPolls(const Limits& limits, std::function<void()> release)
    : m_limits(limits), m_release(std::move(release)), m_threads(limits.threads)
{
    m_releaser = std::thread([this] { releaseWhatIsToEnd(); });
}

// What could fail here would leave threads that nobody can join.
LongPolls::~LongPolls() // NOLINT(bugprone-exception-escape)
{
    stop();
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_all();
    m_releaser.join();
}

bool LongPolls::start(Poll poll, Handle& handle)
{
    const std::lock_guard lock(m_mutex);
    const bool isFull =
        m_hanging.size() - m_orphans >= m_limits.polls || m_hanging.size() >= m_limits.threads;
    if (isFull || m_isStopping) {
        return false;
    }
    handle = ++m_lastHandle;
    m_hanging.push_back({handle, std::move(poll), m_releases});
    const auto place = std::prev(m_hanging.end());
    try {
        return m_threads.run([this, place] { hang(place); });
    } catch (...) {
        m_hanging.pop_back();
        throw;
    }
}

void LongPolls::leave(Handle handle)
{
    const std::lock_guard lock(m_mutex);
    const auto found = std::ranges::find(m_hanging, handle, &Hanging::handle);
    if (found == m_hanging.end() || found->leftAt) {
        return;
    }
    found->leftAt = Clock::now();
    ++m_orphans;
    m_changed.notify_all();
}

void LongPolls::releaseBegins()
{
    const std::lock_guard lock(m_mutex);
    ++m_releases;
}

void LongPolls::releaseEnded(bool hasSucceeded)
{
    const std::lock_guard lock(m_mutex);
    if (!hasSucceeded) {
        for (Hanging& hanging : m_hanging) {
            hanging.release = m_releases;
        }
        return;
    }
    m_isReleaseChecked = false;
    m_changed.notify_all();
}

void LongPolls::stop()
{
    std::unique_lock lock(m_mutex);
    m_isStopping = true;
    m_changed.notify_all();
    m_changed.wait(lock, [this] { return m_hanging.empty(); });
}

std::size_t LongPolls::polls() const
{
    const std::lock_guard lock(m_mutex);
    return m_hanging.size() - m_orphans;
}

std::size_t LongPolls::orphans() const
{
    const std::lock_guard lock(m_mutex);
    return m_orphans;
}

void LongPolls::hang(Place place)
{
    while (true) {
        const Outcome outcome = place->poll.call();
        const std::lock_guard lock(m_mutex);
        if (outcome == Outcome::Answered || isToEnd(*place)) {
            break;
        }
    }
    // The client may be told, and come back, before the poll is off the list: it must find room.
    std::list<Hanging> ended;
    {
        const std::lock_guard lock(m_mutex);
        m_orphans -= place->leftAt ? 1 : 0;
        ended.splice(ended.begin(), m_hanging, place);
        m_changed.notify_all();
    }
    ended.front().poll.finish();
}

/// Whether a call that comes back released is not put back.
bool LongPolls::isToEnd(const Hanging& hanging) const
{
    return hanging.leftAt || m_isStopping || hanging.release != m_releases;
}

bool LongPolls::needsRelease() const
{
    const bool mustEnd = std::ranges::any_of(m_hanging, [this](const Hanging& hanging) {
        return m_isStopping || (!hanging.leftAt && hanging.release != m_releases && !m_isReleaseChecked);
    });
    const auto first = firstLeaving();
    return mustEnd || m_orphans > m_limits.orphans || (first && Clock::now() - *first >= m_limits.orphanTime);
}

/// When the first of the clients left whose polls still hang.
std::optional<LongPolls::Clock::time_point> LongPolls::firstLeaving() const
{
    std::optional<Clock::time_point> first;
    for (const Hanging& hanging : m_hanging) {
        if (hanging.leftAt && (!first || *hanging.leftAt < *first)) {
            first = hanging.leftAt;
        }
    }
    return first;
}

void LongPolls::waitForWork(std::unique_lock<std::mutex>& lock)
{
    while (!m_isEnding && m_isReleaseChecked && !needsRelease()) {
        if (const auto first = firstLeaving()) {
            m_changed.wait_until(lock, *first + m_limits.orphanTime);
        } else {
            m_changed.wait(lock);
        }
    }
}

/// What one thread does: releases as long as there is something to release.
void LongPolls::releaseWhatIsToEnd()
{
    std::unique_lock lock(m_mutex);
    auto patience = kFirstPatience;
    while (true) {
        waitForWork(lock);
        if (m_isEnding) {
            return;
        }
        if (!m_isReleaseChecked && !m_isStopping) {
            // Those that the client's own release has reached are on their way.
            m_changed.wait_for(lock, patience, [this] { return !needsRelease() || m_isStopping; });
        }
        if (!needsRelease()) {
            m_isReleaseChecked = true;
            patience = kFirstPatience;
            continue;
        }
        lock.unlock();
        m_release();
        lock.lock();
        const bool isDone = m_changed.wait_for(lock, patience, [this] { return !needsRelease(); });
        patience = isDone ? kFirstPatience : std::min(2 * patience, kLongestPatience);
    }
}

} // namespace zyr_gateway
