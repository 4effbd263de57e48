#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

namespace zyr_top_api
{

/// Forgets the DADE calibration of the baseband combiner of one radio channel. Succeeds without doing so
/// while a calibration runs.
class ZYR_EXPORT CriSetBasebandSdcDadeResetCalibration
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.CriSetBasebandSdcDadeResetCalibration", // sic: the prefix twice
        .className = "CriSetBasebandSdcDadeResetCalibration",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcDadeResetCalibration",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel channelId; ///< 1 up to the number of channels

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` for a channel without controller; `eTI_E_FAILED` if the
    /// controller answers 0x8000.
    using Response = StandardResponse;

    virtual ~CriSetBasebandSdcDadeResetCalibration() = default;
};

/// Dispatches "CRI.CriSetBasebandSdcDadeResetCalibration". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse
criSetBasebandSdcDadeResetCalibration(const CriSetBasebandSdcDadeResetCalibration::Command& command);

} // namespace zyr_top_api
