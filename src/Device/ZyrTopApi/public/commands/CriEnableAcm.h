#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

namespace zyr_top_api
{

/// Switches adaptive coding and modulation (ACM) of one radio channel on or off.
class ZYR_EXPORT CriEnableAcm
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.EnableAcm",
        .className = "CriEnableAcm",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriEnableAcm",
    };

    struct ZYR_EXPORT Command
    {
        RadioChannel channelId; ///< 1 up to the number of channels
        bool enable = false;    ///< true switches ACM on, false off

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the ACM handler
    /// refuses.
    using Response = StandardResponse;

    virtual ~CriEnableAcm() = default;
};

/// Dispatches "CRI.EnableAcm". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criEnableAcm(const CriEnableAcm::Command& command);

} // namespace zyr_top_api
