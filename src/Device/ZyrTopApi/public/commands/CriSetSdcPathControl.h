#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <string>

namespace zyr_top_api
{

/// Chooses the path of the space diversity combiner (SDC) of one radio channel.
class ZYR_EXPORT CriSetSdcPathControl
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetSdcPathControl",
        .className = "CriSetSdcPathControl",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetSdcPathControl",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel channelId; ///< 1 up to the number of channels
        std::string
            sdcPath; ///< "main", "diversity" or "auto"; any other text goes to the combiner as no path

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` for a channel without controller; `eTI_E_FAILED` if the
    /// controller answers 0x8000.
    using Response = StandardResponse;

    virtual ~CriSetSdcPathControl() = default;
};

/// Dispatches "CRI.SetSdcPathControl". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetSdcPathControl(const CriSetSdcPathControl::Command& command);

} // namespace zyr_top_api
