#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// Sets the DADE calibration data of the baseband combiner of one radio channel.
class ZYR_EXPORT CriSetBasebandSdcDadeParams
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetBasebandSdcDadeParams",
        .className = "CriSetBasebandSdcDadeParams",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcDadeParams",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel channelId;              ///< 1 up to the number of channels
        std::uint16_t mainDataCalibration = 0;      ///< calibration data of the main path
        std::uint16_t diversityDataCalibration = 0; ///< calibration data of the diversity path

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` for a channel without controller; `eTI_E_FAILED` if the
    /// controller answers 0x8000.
    using Response = StandardResponse;

    virtual ~CriSetBasebandSdcDadeParams() = default;
};

/// Dispatches "CRI.SetBasebandSdcDadeParams". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetBasebandSdcDadeParams(const CriSetBasebandSdcDadeParams::Command& command);

} // namespace zyr_top_api
