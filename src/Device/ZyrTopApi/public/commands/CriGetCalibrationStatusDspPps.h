#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "PpsCalibration.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Tells how the calibration of a channel's pulse per second stands.
class ZYR_EXPORT CriGetCalibrationStatusDspPps
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.GetCalibrationStatusDspPps",
        .className = "CriGetCalibrationStatusDspPps",
        .responseLabel = "CriGetCalibrationStatus::Response", // sic: shorter than the class
        .traceChannel = "ZYR.TI.CriGetCalibrationStatusDspPps",
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< 1 up to the number of channels

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the DSP
    /// refuses; a calibration that failed is a successful reading.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        PpsCalibStatus ppsCalibStatus = PpsCalibStatus::Undefined;
        /// Counts if the status is `Failed`; not printed.
        PpsCalibReasonOfFailure ppsCalibReasonOfFailure = PpsCalibReasonOfFailure::Undefined;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriGetCalibrationStatusDspPps() = default;
};

/// Dispatches "CRI.GetCalibrationStatusDspPps". From any thread; waits for other commands.
ZYR_EXPORT CriGetCalibrationStatusDspPps::Response
criGetCalibrationStatusDspPps(const CriGetCalibrationStatusDspPps::Command& command);

} // namespace zyr_top_api
