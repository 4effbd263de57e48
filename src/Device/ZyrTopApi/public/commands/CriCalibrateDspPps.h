#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "PpsCalibration.h"

#include <cstdint>

namespace zyr_top_api
{

/// Starts a calibration of a channel's pulse per second against the modem's real-time counter. The
/// calibration goes on in the DSP: "CRI.GetCalibrationStatusDspPps" tells how it stands.
class ZYR_EXPORT CriCalibrateDspPps
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.CalibrateDspPps",
        .className = "CriCalibrateDspPps",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriCalibrateDspPps",
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< 1 up to the number of channels
        PpsRtcCalibrationMode ppsRtcCalibrationMode = PpsRtcCalibrationMode::CoarseAndFine;
        std::uint32_t ppsPeriodMilliSec = 0; ///< the DSP gets the low 16 bits

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the DSP
    /// refuses.
    using Response = StandardResponse;

    virtual ~CriCalibrateDspPps() = default;
};

/// Dispatches "CRI.CalibrateDspPps". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criCalibrateDspPps(const CriCalibrateDspPps::Command& command);

} // namespace zyr_top_api
