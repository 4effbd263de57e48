#include "Interference.h"

#include "DualStream.h"
#include "Hop.h"

#include <algorithm>
#include <cmath>

namespace zyr_simulation
{

using zyr_top_api::ETxPowerActualStatus;
using zyr_top_api::MimoLockStatus;

namespace
{

double overlap_kHz(const Band& one, const Band& other)
{
    const auto low = std::max(2 * one.centre_kHz - one.width_kHz, 2 * other.centre_kHz - other.width_kHz);
    const auto high = std::min(2 * one.centre_kHz + one.width_kHz, 2 * other.centre_kHz + other.width_kHz);
    return static_cast<double>(std::max<std::int64_t>(high - low, 0)) / 2;
}

} // namespace

double shareWithin(const Band& signal, const Band& window)
{
    return signal.width_kHz > 0 ? overlap_kHz(signal, window) / static_cast<double>(signal.width_kHz) : 0.0;
}

Band receiveBand(const ChannelState& channel)
{
    return {channel.rxFrequency_kHz, channelSpacing_kHz(channel)};
}

Band transmitBand(const ChannelState& channel)
{
    return {channel.txFrequency_kHz, channelSpacing_kHz(channel)};
}

const ChannelState* otherPolarisation(const NodeState& node, const ChannelState& channel)
{
    const auto overlaps = [&](const ChannelState& other) {
        return other.number != channel.number && channel.rxFrequency_kHz != 0 && other.rxFrequency_kHz != 0 &&
               shareWithin(receiveBand(other), receiveBand(channel)) > 0;
    };
    const auto other = std::ranges::find_if(node.channels, overlaps);
    return other == node.channels.end() ? nullptr : &*other;
}

double power_mW(double level)
{
    return level > kNoLevel_dBmTenths ? std::pow(10.0, level / 100.0) : 0.0;
}

std::int32_t level_dBmTenths(double power)
{
    if (power <= 0) {
        return kNoLevel_dBmTenths;
    }
    return std::max(static_cast<std::int32_t>(std::lround(100.0 * std::log10(power))), kNoLevel_dBmTenths);
}

double interference_mW(const NodeState& node, const ChannelState& channel)
{
    const auto window = receiveBand(channel);
    double sum = 0;
    if (const auto* const other = otherPolarisation(node, channel)) {
        const bool isCancelled = xpicLock(node, channel) == MimoLockStatus::Locked;
        const auto less =
            crossPolarDiscrimination_dBTenths(node, channel) + (isCancelled ? kCancelling_dBTenths : 0);
        sum += power_mW(farEndLevel_dBmTenths(node, *other)) * std::pow(10.0, -less / 100.0) *
               shareWithin(receiveBand(*other), window);
    }
    for (const auto& interferer : node.interferers) {
        sum += power_mW(interferer.level_dBmTenths) *
               shareWithin({interferer.frequency_kHz, interferer.width_kHz}, window);
    }
    return sum;
}

double farEndInterference_mW(const NodeState& node, const ChannelState& channel)
{
    const auto* const other = otherPolarisation(node, channel);
    if (other == nullptr || other->transmitter.status != ETxPowerActualStatus::On) {
        return 0;
    }
    const bool isCancelled = wantsOtherPolarisation(channel) && preamblesPair(node, channel);
    const auto less =
        crossPolarDiscrimination_dBTenths(node, channel) + (isCancelled ? kCancelling_dBTenths : 0);
    return power_mW(levelAtFarEnd_dBmTenths(node, *other)) * std::pow(10.0, -less / 100.0) *
           shareWithin(transmitBand(*other), transmitBand(channel));
}

} // namespace zyr_simulation
