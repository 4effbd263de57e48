#include "DualStream.h"

#include "Hop.h"
#include "Interference.h"
#include "Processes.h"

#include <algorithm>
#include <cmath>

namespace zyr_simulation
{

using zyr_top_api::MimoLockStatus;
using zyr_top_api::XpicMimoPreamble;

namespace
{

/// A value that moves slowly about its mean, each stream's on its own.
std::int32_t moving(const NodeState& node, const ChannelState& channel, Stream stream, double mean,
                    double amplitude)
{
    constexpr double period_s = 30.0;
    constexpr double streamPhase = 1.3;
    const auto time = std::chrono::duration<double>(node.now()).count();
    const auto phase =
        static_cast<double>(node.settings.seed) + channel.number + streamPhase * static_cast<double>(stream);
    return static_cast<std::int32_t>(std::lround(mean + amplitude * std::sin(time / period_s + phase)));
}

/// What the slave needs above the noise.
constexpr std::int32_t kSlaveSnr_dBTenths = 50;

/// Whether both ends of the cable between the polarisations are plugged in and send.
bool hearsOtherPolarisation(const NodeState& node, const ChannelState& channel)
{
    const auto* const other = otherPolarisation(node, channel);
    return channel.xpic.exchanges() && (other == nullptr || other->xpic.exchanges());
}

/// Whether nothing keeps the slave from the other polarisation's carrier.
bool findsCarrier(const NodeState& node, const ChannelState& channel)
{
    return wantsOtherPolarisation(channel) && !channel.xpic.isMuted && channel.isConfigured() &&
           !node.dsp.isRecovering && receivesFarEnd(node, channel) && preamblesPair(node, channel) &&
           slaveLevel_dBmTenths(node, channel) - noiseFloor_dBmTenths(channel) >= kSlaveSnr_dBTenths;
}

} // namespace

bool wantsOtherPolarisation(const ChannelState& channel)
{
    return channel.xpic.isStarted() || channel.mimo.isStarted();
}

bool preamblesPair(const NodeState& node, const ChannelState& channel)
{
    using enum XpicMimoPreamble;
    const auto partner = [](XpicMimoPreamble preamble) {
        switch (preamble) {
        case Preamble_A:
            return Preamble_B;
        case Preamble_B:
            return Preamble_A;
        case Preamble_C:
            return Preamble_D;
        default:
            return Preamble_C;
        }
    };
    const auto* const other = otherPolarisation(node, channel);
    return other == nullptr || other->xpic.preamble == partner(channel.xpic.preamble);
}

bool slaveSweeps(const NodeState& node, const ChannelState& channel)
{
    return wantsOtherPolarisation(channel) && xpicLock(node, channel) == MimoLockStatus::Unlocked;
}

std::int32_t slaveLevel_dBmTenths(const NodeState& node, const ChannelState& channel)
{
    if (!hearsOtherPolarisation(node, channel)) {
        return kNoLevel_dBmTenths;
    }
    const auto* const other = otherPolarisation(node, channel);
    return farEndLevel_dBmTenths(node, other == nullptr ? channel : *other);
}

void settleXpic(NodeState& node, ChannelState& channel)
{
    auto& xpic = channel.xpic;
    const bool finds = findsCarrier(node, channel);
    if (finds && !xpic.findsCarrier) {
        xpic.sweepsUntil = node.settleAfter(kXpicSweepTime);
    }
    xpic.findsCarrier = finds;
}

std::int32_t crossPolarDiscrimination_dBTenths(const NodeState& node, const ChannelState& channel,
                                               Stream stream)
{
    return moving(node, channel, stream, node.settings.crossPolarDiscrimination_dBTenths, 5);
}

std::int32_t carrierOffset_Hz(const NodeState& node, const ChannelState& channel, Stream stream)
{
    return moving(node, channel, stream, 0, 400);
}

std::int32_t gainDifference_dBTenths(const NodeState& node, const ChannelState& channel)
{
    return moving(node, channel, Stream::Spatial, 15, 3);
}

std::int32_t eta_tenThousandths(const NodeState& node, const ChannelState& channel)
{
    return moving(node, channel, Stream::Spatial, 9'000, 200);
}

MimoLockStatus xpicLock(const NodeState& node, const ChannelState& channel)
{
    if (channel.xpic.isMuted) {
        return MimoLockStatus::Mute;
    }
    const bool isLocked = channel.xpic.findsCarrier && node.now() >= channel.xpic.sweepsUntil;
    return isLocked ? MimoLockStatus::Locked : MimoLockStatus::Unlocked;
}

} // namespace zyr_simulation
