#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

namespace zyr_top_api
{

/// Starts or aborts the DADE calibration of the baseband combiner of one radio channel.
class ZYR_EXPORT CriSetBasebandSdcDadeCalibration
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.CriSetSdcBasebandDadeCalibration", // sic: unlike the class
        .className = "CriSetBasebandSdcDadeCalibration",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcDadeCalibration",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel channelId; ///< 1 up to the number of channels
        bool dadeCalibration = false;  ///< true starts a calibration, false aborts it

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` for a channel without controller; `eTI_E_FAILED` if the
    /// controller answers 0x8000.
    using Response = StandardResponse;

    virtual ~CriSetBasebandSdcDadeCalibration() = default;
};

/// Dispatches "CRI.CriSetSdcBasebandDadeCalibration". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse
criSetBasebandSdcDadeCalibration(const CriSetBasebandSdcDadeCalibration::Command& command);

} // namespace zyr_top_api
