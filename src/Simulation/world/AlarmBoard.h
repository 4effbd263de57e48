#pragma once

#include "AlarmEvent.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zyr_simulation
{

/// Names of the alarms that the simulated node raises.
namespace alarm
{

inline constexpr std::string_view kAcmDisabled = "AcmDisabled"; ///< ACM was switched off on the channel.
inline constexpr std::string_view kTxOff = "TxOff";             ///< The channel's transmitter went off.
inline constexpr std::string_view kLinkDown = "LinkDown";       ///< The channel's receiver lost the far end.
inline constexpr std::string_view kFarEndLinkDown =
    "FarEndLinkDown"; ///< The far end's receiver can't lock to what the channel sends.
inline constexpr std::string_view kLoopClosed = "LoopClosed"; ///< The channel gets its own signal back.
inline constexpr std::string_view kEncryptionKeyMismatch =
    "EncryptionKeyMismatch"; ///< The channel's link is up, but its ends have different keys.
inline constexpr std::string_view kRadioDown = "RadioDown"; ///< The channel's radio unit isn't up.
inline constexpr std::string_view kDspRecovery =
    "DspRecovery"; ///< The DSP restarts; channel 0, the whole node.

} // namespace alarm

/// An alarm as people see it.
struct ReportedAlarm : zyr_top_api::AlarmEvent
{
    std::chrono::nanoseconds changedAt{0}; ///< When it was raised or cleared last, on the node's wall clock.
};

/// The alarms of the node, and the place where long polls wait for a change of them.
///
/// An alarm is known from the first time that it is raised. Everything here is guarded by the node's mutex:
/// operations are called with that mutex held; those that wait take the lock and give it up while they wait.
class AlarmBoard
{
  public:
    /// How a wait for a change ended.
    enum class WaitResult
    {
        Changed,  ///< The alarms differ from the view.
        Released, ///< The wait was released, or the board is shut down.
    };

    /// @param clock  gives the node's wall clock, counted from 1970
    explicit AlarmBoard(std::function<std::chrono::nanoseconds()> clock) : m_clock(std::move(clock)) {}

    /// Raises an alarm, or does nothing if it is active.
    void raise(std::string_view name, unsigned channel);

    /// Clears an alarm, or does nothing if it isn't active.
    void clear(std::string_view name, unsigned channel);

    /// Raises or clears an alarm.
    void set(std::string_view name, unsigned channel, bool active);

    /// Forgets the counts of the alarms that aren't active; the alarms stay known.
    void resetCountsOfInactive();

    /// All known alarms, by name and then by channel.
    std::vector<zyr_top_api::AlarmEvent> all() const;

    /// The same with their times. A time stays as it is when the clock is set afterwards.
    std::vector<ReportedAlarm> reported() const;

    /// The alarms that are raised now, in the same order.
    std::vector<zyr_top_api::AlarmEvent> active() const;

    /// Waits until the alarms differ from a view of them: as sets, by name and channel, in flag and count.
    WaitResult waitForChange(std::unique_lock<std::mutex>& lock,
                             const std::vector<zyr_top_api::AlarmEvent>& view);

    /// Ends all waits that are under way, and none that begins later.
    void release();

    /// Ends all waits, and lets none begin any more.
    void shutdown();

    /// How many waits are under way.
    unsigned waiting() const { return m_waiting; }

  private:
    using Key = std::pair<std::string, unsigned>;
    using KeyView = std::pair<std::string_view, unsigned>;
    /// Compares keys without a copy of the name.
    struct Less
    {
        using is_transparent = void; // NOLINT(readability-identifier-naming): what the map looks for
        bool operator()(const KeyView& left, const KeyView& right) const { return left < right; }
    };
    struct Condition
    {
        bool isActive = false;
        std::int32_t count = 0;
        std::chrono::nanoseconds changedAt{0};

        /// As a view sees it, which has no times.
        bool operator==(const Condition& other) const
        {
            return isActive == other.isActive && count == other.count;
        }
    };

    using Alarms = std::map<Key, Condition, Less>;

    bool differsFrom(const std::vector<zyr_top_api::AlarmEvent>& view) const;

    std::function<std::chrono::nanoseconds()> m_clock;
    Alarms m_alarms;
    std::condition_variable m_changed;
    unsigned m_waiting = 0;
    std::uint64_t m_releases = 0;
    bool m_isShutDown = false;
};

} // namespace zyr_simulation
