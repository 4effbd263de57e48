#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

namespace zyr_top_api
{

/// Switches the space diversity combiner (SDC) of one radio channel on or off.
class ZYR_EXPORT CriSetSdcEnable
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetSdcEnable",
        .className = "CriSetSdcEnable",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetSdc", // sic
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel channelId; ///< 1 up to the number of channels
        bool sdcEnable = false;        ///< true switches the combiner on, false off

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` for a channel without controller; `eTI_E_FAILED` if the
    /// controller answers 0x8000.
    using Response = StandardResponse;

    virtual ~CriSetSdcEnable() = default;
};

/// Dispatches "CRI.SetSdcEnable". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetSdcEnable(const CriSetSdcEnable::Command& command);

} // namespace zyr_top_api
