#pragma once

#include "AlarmBoard.h"
#include "ChannelState.h"
#include "FFConfigType.h"
#include "FaultInjector.h"
#include "Interferer.h"
#include "Recover.h"
#include "RouteType.h"
#include "SimulatedNodeOptions.h"
#include "TimeSource.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace zyr_simulation
{

/// The DSP as a whole.
struct DspState
{
    zyr_top_api::FFConfigType type = zyr_top_api::FFConfigType::Std; ///< The frame format type in force.
    zyr_top_api::FFConfigType pendingType{
        zyr_top_api::FFConfigType::Std}; ///< Comes into force with a recovery.
    bool isRecovering = false;
    std::chrono::nanoseconds recoveryEndsAt{0};
    unsigned recoveries = 0;
    zyr_top_api::Recover lastRecovery = zyr_top_api::Recover::None;
};

/// Destinations by route type and channel.
using Routes = std::map<std::pair<zyr_top_api::RouteType, std::uint32_t>, std::uint32_t>;

/// The node's clocks, each as what it is ahead of the node's time source, counted from 1970.
struct Clocks
{
    std::chrono::nanoseconds system{0};
    std::chrono::nanoseconds hardware{0};
};

/// The state that all simulated collaborators of a node share.
///
/// Everything but the faults, which guard themselves, is guarded by `mutex`. Always owned by a shared
/// pointer, so that a timer that comes too late finds the node either whole or gone.
class NodeState : public std::enable_shared_from_this<NodeState>
{
  public:
    /// @throws std::invalid_argument if the options can't be
    NodeState(const SimulatedNodeOptions& options, zyr_platform::TimeSource& time);

    /// The channel with this number, 1 up to the number of channels.
    ChannelState& channel(unsigned number) { return channels.at(number - 1); }

    /// The time of the node's clock; while the state is brought up to date, the moment to which.
    std::chrono::nanoseconds now() const { return m_settlesAt ? *m_settlesAt : m_time.now(); }

    /// The node's wall clock, counted from 1970.
    std::chrono::nanoseconds systemTime() const;

    /// The node's hardware clock, counted from 1970; not looked at with the host's clocks.
    std::chrono::nanoseconds hardwareTime() const { return clocks.hardware + now(); }

    /// Brings everything that changes by itself up to the present: transmitters, restarts, calibrations, the
    /// hop, and the alarms that follow from them. What has passed since the last time is gone through in
    /// steps, as if somebody had looked all the time. Does next to nothing if that is less than a
    /// millisecond ago. Called with the mutex held.
    void settle();

    /// The same behind a change of the state, from which something else may follow.
    void settleAnew();

    /// Takes care that the state is brought up to date when so much time has passed, however quiet the node
    /// is.
    /// @return the moment at which that will be
    std::chrono::nanoseconds settleAfter(std::chrono::nanoseconds delay);

    /// Brings the state up to date regularly, beginning now, as long as somebody waits for a change of the
    /// alarms. At other times a node that nobody asks, and in which nothing is due, does nothing.
    void settleWhileAwaited();

    std::mutex mutex;
    FaultInjector faults;
    AlarmBoard alarms;
    SimulatedNodeOptions settings; ///< As they are now.
    std::vector<ChannelState> channels;
    DspState dsp;
    unsigned frameUpdateMode = 0;
    Routes routes;
    std::vector<Interferer> interferers;
    Clocks clocks;

  private:
    void after(std::chrono::nanoseconds delay, std::function<void(NodeState&)> action);
    void tick();
    void catchUp(std::chrono::nanoseconds present);
    void settleAt(std::chrono::nanoseconds moment);

    zyr_platform::TimeSource& m_time;
    std::chrono::nanoseconds m_settledAt{0};
    std::optional<std::chrono::nanoseconds> m_settlesAt;
    unsigned m_roundsLeft = 0; ///< until nothing more follows from what has changed
    bool m_isTicking = false;
};

} // namespace zyr_simulation
