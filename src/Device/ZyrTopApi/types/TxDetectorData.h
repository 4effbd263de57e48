#pragma once

#include <cstdint>

namespace zyr_top_api
{

/// What one of the two power detectors of the transmitter reports; the caller selects the detector.
struct TxDetectorData
{
    std::int32_t highDetector = 0; ///< Set by the caller: 1 high detector, 0 low detector.
    std::int32_t adcValue = 0;
    std::int32_t powerFromVoltage = 0;
    std::int32_t powerTemperatureCompensation = 0;
    std::int32_t powerFrequencyTemperatureCompensation = 0;
    std::int32_t modulationCompensation = 0;
    std::int32_t bandwidthCompensation = 0;
    std::int32_t detectedPower = 0;
};

} // namespace zyr_top_api
