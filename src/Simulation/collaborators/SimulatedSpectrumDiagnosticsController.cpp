#include "SimulatedSpectrumDiagnosticsController.h"

#include "Hop.h"
#include "Processes.h"
#include "RadioType.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::SpectrumDiagnosticsProperties;
using zyr_top_api::SpectrumDiagnosticsResult;

namespace
{

// Modes of the scan control.
constexpr unsigned kSubBandScan = 1;
constexpr unsigned kStop = 2;

constexpr std::size_t kChannelPoints = 41;
constexpr std::size_t kSubBandPoints = 201;

/// The level of the foreign carrier.
constexpr std::int32_t kForeignLevel = -620;

/// A carrier's level where it is, the noise elsewhere.
std::int32_t levelOf(const NodeState& node, const ChannelState& channel, std::uint32_t frequency_kHz)
{
    const auto isWithin = [&](std::uint32_t centre_kHz) {
        const auto distance =
            static_cast<std::int64_t>(frequency_kHz) - static_cast<std::int64_t>(centre_kHz);
        return std::abs(distance) * 2 <= channelSpacing_kHz(channel);
    };
    const auto& band = radioType(node.settings.radioType).frequencies;
    const auto bandwidth = band.MaxRXFrequency - band.MinRXFrequency;
    const auto foreign_kHz = band.MinRXFrequency + node.settings.seed * 7'919U % bandwidth;
    if (isWithin(channel.rxFrequency_kHz) && channel.receiver.level > kNoLevel_dBmTenths) {
        return channel.receiver.level;
    }
    return isWithin(foreign_kHz) ? kForeignLevel : noiseFloor_dBmTenths(channel);
}

} // namespace

void SimulatedSpectrumDiagnosticsController::begin(bool isSubBand, unsigned dmSleep) const
{
    const auto& band = radioType(node().settings.radioType).frequencies;
    const auto width = isSubBand ? band.MaxRXFrequency - band.MinRXFrequency
                                 : static_cast<std::uint32_t>(channelSpacing_kHz(channel()));
    auto& scan = channel().scan;
    scan.isStarted = true;
    scan.isSubBand = isSubBand;
    scan.points = isSubBand ? kSubBandPoints : kChannelPoints;
    scan.first_kHz = isSubBand ? band.MinRXFrequency : channel().rxFrequency_kHz - width / 2;
    scan.step_kHz = width / static_cast<std::uint32_t>(scan.points - 1);
    scan.startedAt = node().now();
    scan.timePerPoint = kScanPointTime + std::chrono::milliseconds(dmSleep);
}

std::size_t SimulatedSpectrumDiagnosticsController::pointsDone() const
{
    const auto& scan = channel().scan;
    const auto done = static_cast<std::size_t>((node().now() - scan.startedAt) / scan.timePerPoint);
    return scan.isStarted ? std::min(done, scan.points) : 0;
}

ETIResult SimulatedSpectrumDiagnosticsController::scanControl(unsigned mode, unsigned dmSleep)
{
    return perform<ETIResult>("scanControl", [&] {
        if (mode > kStop) {
            return zyr_top_api::eTI_E_INVALID_ARGUMENT;
        }
        if (mode == kStop) {
            channel().scan.isStarted = false;
            return zyr_top_api::eTI_S_OK;
        }
        const bool isSubBand = mode == kSubBandScan;
        if (!channel().radio.isUp() || (!isSubBand && channel().rxFrequency_kHz == 0)) {
            return zyr_top_api::eTI_E_FAILED;
        }
        begin(isSubBand, dmSleep);
        return zyr_top_api::eTI_S_OK;
    });
}

ETIResult SimulatedSpectrumDiagnosticsController::getResult(int& count, SpectrumDiagnosticsResult* buffer)
{
    return perform<ETIResult>("getResult", [&] {
        const auto& scan = channel().scan;
        const auto capacity = static_cast<std::size_t>(std::max(count, 0));
        const auto found = std::min(pointsDone(), capacity);
        for (std::size_t point = 0; point < found; ++point) {
            const auto frequency = scan.first_kHz + scan.step_kHz * static_cast<std::uint32_t>(point);
            buffer[point] = {frequency, levelOf(node(), channel(), frequency)};
        }
        count = static_cast<int>(found);
    });
}

std::int32_t SimulatedSpectrumDiagnosticsController::getStatus()
{
    constexpr std::int32_t notStarted = 0;
    constexpr std::int32_t subBandOngoing = 1;
    constexpr std::int32_t channelOngoing = 2;
    constexpr std::int32_t subBandFinished = 3;
    constexpr std::int32_t channelFinished = 4;
    return locked([&] {
        const auto& scan = channel().scan;
        if (!scan.isStarted) {
            return notStarted;
        }
        const bool isFinished = pointsDone() == scan.points;
        const auto ongoing = scan.isSubBand ? subBandOngoing : channelOngoing;
        const auto finished = scan.isSubBand ? subBandFinished : channelFinished;
        return isFinished ? finished : ongoing;
    });
}

std::int32_t SimulatedSpectrumDiagnosticsController::getProgress()
{
    return locked([&] {
        const auto& scan = channel().scan;
        return scan.isStarted ? static_cast<std::int32_t>(pointsDone() * 100 / scan.points) : 0;
    });
}

SpectrumDiagnosticsProperties SimulatedSpectrumDiagnosticsController::getProperties()
{
    return locked([&] {
        const auto& features = radioType(node().settings.radioType).features;
        SpectrumDiagnosticsProperties properties;
        properties.isLongHaul = node().settings.longHaul;
        properties.isRadioCarrierAggrCapable = features.CarrierAggregationCapable;
        properties.isSdcSupported = features.SpaceDiversityCombinerCapable;
        return properties;
    });
}

} // namespace zyr_simulation
