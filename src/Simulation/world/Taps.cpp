#include "Taps.h"

#include "FrameDatabase.h"
#include "Mimo.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

namespace zyr_simulation
{

namespace
{

using zyr_top_api::ModulationAndCoding;
using Seconds = std::chrono::duration<double>;

constexpr double kTrafficPeriod_s = 120.0;
constexpr double kThresholdShare = 0.1; ///< Of the greatest rate.

/// The rate of the channel with a modulation, 0 without a frame.
std::int32_t rate_Mbit(const ChannelState& channel, ModulationAndCoding modulation)
{
    const auto* frame = findRadioFrame(channel.radioFrameId);
    return frame == nullptr
               ? 0
               : static_cast<std::int32_t>(capacity_kbit(*frame, modulation) * capacityShare(channel) / 1000);
}

/// The share of the channel's greatest rate that its traffic takes.
double trafficShare(const NodeState& node, const ChannelState& channel)
{
    const double phase = static_cast<double>(node.settings.seed) * 0.9 + channel.number * 1.3;
    const double turns = Seconds(node.now()).count() / kTrafficPeriod_s;
    return 0.5 + 0.4 * std::sin(2 * std::numbers::pi * turns + phase);
}

/// Commands may give any number, and no number.
std::int32_t wholeNumber(double value)
{
    constexpr double greatest = 1e9;
    return std::isnan(value) ? 0
                             : static_cast<std::int32_t>(std::lround(std::clamp(value, -greatest, greatest)));
}

/// What the most robust modulation that carries a rate needs less SNIR than the greatest one, in tenths of a
/// dB.
std::int32_t spareSnir(const ChannelState& channel, std::int32_t rate)
{
    const auto rungs = rungsBetween(channel.minModulation, channel.maxModulation);
    const auto enough = std::ranges::find_if(
        rungs, [&](const LadderRung& rung) { return rate_Mbit(channel, rung.modulation) >= rate; });
    return enough == rungs.end()
               ? 0
               : std::max(rungs.back().requiredSnir_dBTenths - enough->requiredSnir_dBTenths, 0);
}

} // namespace

TapsDecision tapsDecision(const NodeState& node, const ChannelState& channel)
{
    const auto& transmitter = channel.transmitter;
    const std::int32_t greatest = rate_Mbit(channel, channel.maxModulation);
    const double needed = greatest * trafficShare(node, channel) + channel.taps.idleRateOffset;
    TapsDecision decision;
    decision.rateNeeded = std::clamp(wholeNumber(needed), 0, greatest);
    decision.idleRate = greatest - decision.rateNeeded;
    decision.idleRateThreshold =
        wholeNumber(greatest * kThresholdShare * channel.taps.idleRateThresholdFactor);
    if (channel.taps.enabled && decision.idleRate >= decision.idleRateThreshold) {
        const std::int64_t window = std::int64_t{transmitter.maxPower} - transmitter.minPower;
        decision.deltaPower = -static_cast<std::int32_t>(std::clamp<std::int64_t>(
            spareSnir(channel, decision.rateNeeded), 0, std::max<std::int64_t>(window, 0)));
    }
    return decision;
}

zyr_top_api::TapsLogData tapsSample(const NodeState& node, const ChannelState& channel,
                                    std::chrono::nanoseconds now)
{
    constexpr std::int32_t mebit = 1'048'576;
    const auto& transmitter = channel.transmitter;
    const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(now);
    const TapsDecision decision = tapsDecision(node, channel);
    zyr_top_api::TapsLogData sample;
    sample.timeStamp = std::to_string(time.count()) + " ms";
    sample.minPowerIn = transmitter.minPower;
    sample.maxPowerIn = transmitter.maxPower;
    sample.dspRateMbit = rate_Mbit(channel, channel.receiver.txModulation);
    sample.dspRateMebit = static_cast<std::int32_t>(sample.dspRateMbit * 1'000'000LL / mebit);
    sample.dspMinRateMbit = rate_Mbit(channel, channel.minModulation);
    sample.dspMaxRateMbit = rate_Mbit(channel, channel.maxModulation);
    sample.currentModValue = static_cast<std::int32_t>(channel.receiver.txModulation);
    sample.idleRate = decision.idleRate;
    sample.idleRateThreshold = decision.idleRateThreshold;
    sample.rateNeeded = decision.rateNeeded;
    sample.rateMin = sample.dspMinRateMbit;
    sample.deltaPower = decision.deltaPower;
    sample.minPowerOut = transmitter.minPower;
    sample.maxPowerOut = transmitter.maxPower + decision.deltaPower;
    sample.atpcEnabled = transmitter.minPower != transmitter.maxPower;
    return sample;
}

} // namespace zyr_simulation
