#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

namespace zyr_top_api
{

/// Switches the paths of the baseband combiner of one radio channel on or off.
class ZYR_EXPORT CriSetBasebandSdcChannel
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetBasebandSdcChannel",
        .className = "CriSetBasebandSdcChannel",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcChannel",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel channelId;          ///< 1 up to the number of channels
        bool isMainChannelEnabled = false;      ///< true switches the main path on, false off
        bool isDiversityChannelEnabled = false; ///< true switches the diversity path on, false off

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` for a channel without controller; `eTI_E_FAILED` if the
    /// controller answers 0x8000.
    using Response = StandardResponse;

    virtual ~CriSetBasebandSdcChannel() = default;
};

/// Dispatches "CRI.SetBasebandSdcChannel". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetBasebandSdcChannel(const CriSetBasebandSdcChannel::Command& command);

} // namespace zyr_top_api
