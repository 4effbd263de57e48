#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: reads the detected output power at radio frequency of channel 1 with all the terms that make
/// it up, for both detectors. Powers are in the chain's unit.
class ZYR_EXPORT TiGetTXRFDetectedOutputPower
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.GetTXRFDetectedOutputPower",
        .className = "TiGetTXRFDetectedOutputPower",
        .responseLabel = "TiGetTXRFDetectedOutputPower::Response",
        .traceChannel = "ZYR.TI.GetTXRFDetectedOutputPower",
        .route = Route::Direct,
    };

    struct Command
    {
        std::uint32_t channelId = 1; ///< 1: the chain of one channel only
    };

    /// `eTI_E_INVALID_ARGUMENT` for another channel than 1; `eTI_E_FAILED` if a detector can't be read.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::uint32_t radioChannelId = 1; ///< the command's
        bool usingHighDetector = false;
        std::int32_t switchToHighLevel = 0; ///< level from which the high detector is used
        std::int32_t switchToLowLevel = 0;  ///< level from which the low detector is used
        std::int32_t txRFDetectorADCValueHigh = 0;
        std::int32_t txRFDetectorADCValueLow = 0;
        std::int32_t powerFromVoltageHigh = 0;
        std::int32_t powerFromVoltageLow = 0;
        std::int32_t powerTemperatureCompensationHigh = 0;
        std::int32_t powerTemperatureCompensationLow = 0;
        std::int32_t powerFrequencyTemperatureCompensationHigh = 0;
        std::int32_t powerFrequencyTemperatureCompensationLow = 0;
        std::int32_t modulationCompensationHigh = 0;
        std::int32_t modulationCompensationLow = 0;
        std::int32_t bandwidthCompensationHigh = 0;
        std::int32_t bandwidthCompensationLow = 0;
        std::int32_t detectedPowerHigh = 0;
        std::int32_t detectedPowerLow = 0;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiGetTXRFDetectedOutputPower() = default;
};

} // namespace zyr_top_api
