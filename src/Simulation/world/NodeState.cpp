#include "NodeState.h"

#include "Hop.h"
#include "Mimo.h"
#include "Pps.h"
#include "Processes.h"
#include "RadioType.h"
#include "WarmRestart.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace zyr_simulation
{

namespace
{

using namespace std::chrono_literals;

/// The longest time for which a change of the hop can go unnoticed.
constexpr std::chrono::nanoseconds kTickPeriod = 100ms;
/// In so many steps, at the most, a longer time is gone through in which nobody has looked.
constexpr std::int64_t kMostSteps = 600;
/// A state that was brought up to date so shortly ago still is.
constexpr std::chrono::nanoseconds kFresh = 1ms;
/// What one channel does can show on the other one only in the next round.
constexpr unsigned kRounds = 2;

} // namespace

NodeState::NodeState(const SimulatedNodeOptions& options, zyr_platform::TimeSource& time)
    : faults(options.channels), alarms([this] { return systemTime(); }), settings(options), m_time(time)
{
    if (options.channels < 1 || options.channels > 2) {
        throw std::invalid_argument("a node has 1 or 2 radio channels, not " +
                                    std::to_string(options.channels));
    }
    if (!options.stateFolder.empty() && !std::filesystem::is_directory(options.stateFolder)) {
        throw std::invalid_argument(options.stateFolder + ": no folder for the node's files");
    }
    radioType(options.radioType); // refuses an unknown type
    clocks.system = std::chrono::system_clock::now().time_since_epoch() - now();
    clocks.hardware = clocks.system;
    m_settledAt = now();
    m_roundsLeft = kRounds;
    for (unsigned number = 1; number <= options.channels; ++number) {
        auto& channel = channels.emplace_back();
        channel.number = number;
        channel.xpic.preamble = number == 1 ? zyr_top_api::XpicMimoPreamble::Preamble_A
                                            : zyr_top_api::XpicMimoPreamble::Preamble_B;
        channel.receiver.settledAt = now();
        if (options.startUp == Zyr::ZyrInitState::WarmRestart) {
            resumeTraffic(*this, channel);
        }
    }
}

std::chrono::nanoseconds NodeState::systemTime() const
{
    return settings.hostClock ? std::chrono::system_clock::now().time_since_epoch() + (now() - m_time.now())
                              : clocks.system + now();
}

void NodeState::settle()
{
    const auto present = m_time.now();
    if (present - m_settledAt >= kFresh) {
        catchUp(present);
        m_settledAt = present;
        m_roundsLeft = kRounds;
    }
    if (m_roundsLeft > 0) {
        --m_roundsLeft;
        settleAt(present);
    }
}

void NodeState::settleAnew()
{
    m_roundsLeft = kRounds;
    settle();
}

void NodeState::catchUp(std::chrono::nanoseconds present)
{
    const auto step = std::max(kTickPeriod, (present - m_settledAt) / kMostSteps);
    for (auto moment = m_settledAt + step; moment < present; moment += step) {
        settleAt(moment);
    }
}

void NodeState::settleAt(std::chrono::nanoseconds moment)
{
    m_settlesAt = moment;
    settleDspRecovery(*this);
    for (auto& channel : channels) {
        settleProcesses(*this, channel);
        settleHop(*this, channel);
        settleMimo(*this, channel);
        settlePps(*this, channel);
    }
    m_settlesAt.reset();
}

std::chrono::nanoseconds NodeState::settleAfter(std::chrono::nanoseconds delay)
{
    after(delay, &NodeState::settleAnew);
    return now() + delay;
}

void NodeState::after(std::chrono::nanoseconds delay, std::function<void(NodeState&)> action)
{
    m_time.schedule(delay, [weak = weak_from_this(), action = std::move(action)] {
        if (const auto node = weak.lock()) {
            const std::scoped_lock lock(node->mutex);
            action(*node);
        }
    });
}

void NodeState::settleWhileAwaited()
{
    settle();
    if (!m_isTicking) {
        m_isTicking = true;
        after(kTickPeriod, &NodeState::tick);
    }
}

void NodeState::tick()
{
    settle();
    m_isTicking = alarms.waiting() > 0;
    if (m_isTicking) {
        after(kTickPeriod, &NodeState::tick);
    }
}

} // namespace zyr_simulation
