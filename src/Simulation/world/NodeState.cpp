#include "NodeState.h"

#include "Hop.h"
#include "Mimo.h"
#include "Pps.h"
#include "Processes.h"
#include "RadioType.h"
#include "WarmRestart.h"

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

void NodeState::start()
{
    after(kTickPeriod, &NodeState::tick);
}

std::chrono::nanoseconds NodeState::systemTime() const
{
    return settings.hostClock ? std::chrono::system_clock::now().time_since_epoch() : clocks.system + now();
}

void NodeState::settle()
{
    settleDspRecovery(*this);
    for (auto& channel : channels) {
        settleProcesses(*this, channel);
        settleHop(*this, channel);
        settleMimo(*this, channel);
        settlePps(*this, channel);
    }
}

std::chrono::nanoseconds NodeState::settleAfter(std::chrono::nanoseconds delay)
{
    after(delay, &NodeState::settle);
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

void NodeState::tick()
{
    settle();
    after(kTickPeriod, &NodeState::tick);
}

} // namespace zyr_simulation
