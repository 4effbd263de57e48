#include "SpectrumScan.h"

#include "DualStream.h"
#include "Hop.h"
#include "Interference.h"
#include "Processes.h"
#include "RadioType.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zyr_simulation
{

namespace
{

constexpr std::size_t kChannelPoints = 101;
constexpr std::size_t kSubBandPoints = 201;

/// Whether a signal shows at a point of the scan. One that is narrower than a step shows at the next point.
bool isSeenAt(std::int64_t frequency_kHz, const Band& signal, std::int64_t step_kHz)
{
    return 2 * std::abs(frequency_kHz - signal.centre_kHz) <= std::max(signal.width_kHz, step_kHz);
}

/// The noise, the far end's carriers and the interferers at a frequency. What the far end sends on the other
/// polarisation comes in weaker.
std::int32_t levelAt(const NodeState& node, const ChannelState& channel, std::uint32_t frequency_kHz)
{
    const auto& scan = channel.scan;
    double sum = power_mW(noiseFloor_dBmTenths(channel));
    for (const auto& each : node.channels) {
        if (each.rxFrequency_kHz != 0 && isSeenAt(frequency_kHz, receiveBand(each), scan.step_kHz)) {
            const auto less =
                each.number == channel.number ? 0 : crossPolarDiscrimination_dBTenths(node, channel);
            sum += power_mW(farEndLevel_dBmTenths(node, each)) * std::pow(10.0, -less / 100.0);
        }
    }
    for (const auto& interferer : node.interferers) {
        if (isSeenAt(frequency_kHz, {interferer.frequency_kHz, interferer.width_kHz}, scan.step_kHz)) {
            sum += power_mW(interferer.level_dBmTenths);
        }
    }
    return level_dBmTenths(sum);
}

/// How many points a scan has had the time for.
std::size_t pointsDue(const SpectrumScanState& scan, std::chrono::nanoseconds now)
{
    return std::min(static_cast<std::size_t>((now - scan.startedAt) / scan.timePerPoint), scan.points);
}

} // namespace

void beginScan(NodeState& node, ChannelState& channel, bool isSubBand, std::chrono::nanoseconds pause)
{
    const auto& band = radioType(node.settings.radioType).frequencies;
    const auto width = isSubBand ? band.MaxRXFrequency - band.MinRXFrequency
                                 : 2 * static_cast<std::uint32_t>(channelSpacing_kHz(channel));
    auto& scan = channel.scan;
    scan = {};
    scan.isStarted = true;
    scan.isSubBand = isSubBand;
    scan.points = isSubBand ? kSubBandPoints : kChannelPoints;
    scan.first_kHz =
        isSubBand ? band.MinRXFrequency : std::max(channel.rxFrequency_kHz, width / 2) - width / 2;
    scan.step_kHz = width / static_cast<std::uint32_t>(scan.points - 1);
    scan.startedAt = node.now();
    scan.timePerPoint = kScanPointTime + pause;
    node.settleAfter(scan.timePerPoint * scan.points);
}

void stopScan(ChannelState& channel)
{
    channel.scan.isStarted = false;
}

void settleScan(NodeState& node, ChannelState& channel)
{
    auto& scan = channel.scan;
    if (!scan.isRunning()) {
        return;
    }
    if (!channel.radio.isUp()) {
        stopScan(channel);
        return;
    }
    const auto due = pointsDue(scan, node.now());
    while (scan.results.size() < due) {
        const auto frequency =
            scan.first_kHz + scan.step_kHz * static_cast<std::uint32_t>(scan.results.size());
        scan.results.push_back({frequency, levelAt(node, channel, frequency)});
    }
}

} // namespace zyr_simulation
