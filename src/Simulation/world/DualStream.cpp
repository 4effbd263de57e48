#include "DualStream.h"

#include <algorithm>
#include <cmath>

namespace zyr_simulation
{

using zyr_top_api::MimoLockStatus;

namespace
{

/// A value that moves slowly about its mean.
std::int32_t moving(const NodeState& node, const ChannelState& channel, double mean, double amplitude)
{
    constexpr double period_s = 30.0;
    const auto time = std::chrono::duration<double>(node.now()).count();
    const auto phase = static_cast<double>(node.settings.seed) + channel.number;
    return static_cast<std::int32_t>(std::lround(mean + amplitude * std::sin(time / period_s + phase)));
}

} // namespace

std::int32_t crossPolarIsolation(const NodeState& node, const ChannelState& channel)
{
    return moving(node, channel, 280, 15);
}

std::int32_t carrierOffset_Hz(const NodeState& node, const ChannelState& channel)
{
    return moving(node, channel, 0, 400);
}

std::int32_t eta_tenThousandths(const NodeState& node, const ChannelState& channel)
{
    return moving(node, channel, 9'000, 200);
}

MimoLockStatus xpicLock(const NodeState& node, const ChannelState& channel)
{
    if (channel.xpic.isMuted) {
        return MimoLockStatus::Mute;
    }
    const bool isStarted = channel.xpic.isStarted() || channel.mimo.isStarted();
    const bool isLocked = isStarted && channel.xpic.hearsOtherPolarisation() && channel.receiver.isLinkUp &&
                          node.now() >= channel.xpic.sweepsUntil;
    return isLocked ? MimoLockStatus::Locked : MimoLockStatus::Unlocked;
}

MimoLockStatus mimoLock(const ChannelState& channel)
{
    if (channel.mimo.isSpatialMuted) {
        return MimoLockStatus::Mute;
    }
    return channel.mimo.isStarted() && channel.receiver.isLinkUp ? MimoLockStatus::Locked
                                                                 : MimoLockStatus::Unlocked;
}

int mimoMode(const NodeState& node, const ChannelState& channel)
{
    constexpr int none = 0;
    constexpr int twoByTwo = 4;
    constexpr int fourByFour = 9;
    if (!channel.mimo.isStarted()) {
        return none;
    }
    const bool bothChannels =
        node.channels.size() == 2 &&
        std::ranges::all_of(node.channels, [](const ChannelState& each) { return each.mimo.isStarted(); });
    return bothChannels ? fourByFour : twoByTwo;
}

} // namespace zyr_simulation
