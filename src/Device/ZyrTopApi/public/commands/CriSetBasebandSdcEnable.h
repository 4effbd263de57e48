#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

namespace zyr_top_api
{

/// Starts or stops the baseband combiner of one radio channel.
class ZYR_EXPORT CriSetBasebandSdcEnable
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetBasebandSdcEnable",
        .className = "CriSetBasebandSdcEnable",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcEnable",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel channelId;      ///< 1 up to the number of channels
        bool enabled = false;               ///< true starts the combiner, false stops it
        bool isCalibrationRequired = false; ///< whether a start includes a DADE calibration

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` for a channel without controller; `eTI_E_FAILED` if the
    /// controller answers 0x8000.
    using Response = StandardResponse;

    virtual ~CriSetBasebandSdcEnable() = default;
};

/// Dispatches "CRI.SetBasebandSdcEnable". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetBasebandSdcEnable(const CriSetBasebandSdcEnable::Command& command);

} // namespace zyr_top_api
