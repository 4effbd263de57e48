#include "SimulatedSpectrumDiagnosticsController.h"

#include "RadioType.h"
#include "SpectrumScan.h"

#include <algorithm>
#include <chrono>
#include <cstddef>

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

} // namespace

ETIResult SimulatedSpectrumDiagnosticsController::scanControl(unsigned mode, unsigned dmSleep)
{
    return perform<ETIResult>("scanControl", [&] {
        if (mode > kStop) {
            return zyr_top_api::eTI_E_INVALID_ARGUMENT;
        }
        if (mode == kStop) {
            stopScan(channel());
            return zyr_top_api::eTI_S_OK;
        }
        const bool isSubBand = mode == kSubBandScan;
        if (!channel().radio.isUp() || (!isSubBand && channel().rxFrequency_kHz == 0)) {
            return zyr_top_api::eTI_E_FAILED;
        }
        beginScan(node(), channel(), isSubBand, std::chrono::milliseconds(dmSleep));
        return zyr_top_api::eTI_S_OK;
    });
}

ETIResult SimulatedSpectrumDiagnosticsController::getResult(int& count, SpectrumDiagnosticsResult* buffer)
{
    return ask<ETIResult>("getResult", [&] {
        const auto& results = channel().scan.results;
        const auto found = std::min(results.size(), static_cast<std::size_t>(std::max(count, 0)));
        std::copy_n(results.begin(), found, buffer);
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
    return read([&] {
        const auto& scan = channel().scan;
        if (!scan.isStarted) {
            return notStarted;
        }
        const bool isFinished = !scan.isRunning();
        const auto ongoing = scan.isSubBand ? subBandOngoing : channelOngoing;
        const auto finished = scan.isSubBand ? subBandFinished : channelFinished;
        return isFinished ? finished : ongoing;
    });
}

std::int32_t SimulatedSpectrumDiagnosticsController::getProgress()
{
    return read([&] {
        const auto& scan = channel().scan;
        return scan.points == 0 ? 0 : static_cast<std::int32_t>(scan.results.size() * 100 / scan.points);
    });
}

SpectrumDiagnosticsProperties SimulatedSpectrumDiagnosticsController::getProperties()
{
    return read([&] {
        const auto& features = radioType(node().settings.radioType).features;
        SpectrumDiagnosticsProperties properties;
        properties.isLongHaul = node().settings.longHaul;
        properties.isRadioCarrierAggrCapable = features.CarrierAggregationCapable;
        properties.isSdcSupported = features.SpaceDiversityCombinerCapable;
        return properties;
    });
}

} // namespace zyr_simulation
