#pragma once

#include "Export.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// One sample of the TAPS log. Powers and rates are in the controller's units.
struct ZYR_EXPORT TapsLogData
{
    std::int32_t samplesRemaining = 0; ///< How many samples wait behind this one.
    std::string timeStamp;             ///< When the sample was taken, as the controller writes it.
    std::int32_t minPowerIn = 0;
    std::int32_t maxPowerIn = 0;
    std::int32_t dspRateMebit = 0;
    std::int32_t dspRateMbit = 0;
    std::int32_t dspMinRateMbit = 0;
    std::int32_t dspMaxRateMbit = 0;
    std::int32_t currentModValue = 0;
    std::int32_t idleRate = 0;
    std::int32_t idleRateThreshold = 0;
    std::int32_t rateNeeded = 0;
    std::int32_t rateMin = 0;
    std::int32_t deltaPower = 0;
    std::int32_t minPowerOut = 0;
    std::int32_t maxPowerOut = 0;
    bool atpcEnabled = false;

    /// "TapsLogData: samplesRemaining: <n>, timeStamp: <text>, ..." with all fields in their order.
    std::string toString() const;
};

} // namespace zyr_top_api
