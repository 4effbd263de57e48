#pragma once

#include "AcmMode.h"
#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

namespace zyr_top_api
{

/// Sets how one radio channel adapts its modulation, and where that is decided.
class ZYR_EXPORT CriSetAcmMode
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetAcmMode",
        .className = "CriSetAcmMode",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetAcmMode",
    };

    struct ZYR_EXPORT Command
    {
        RadioChannel channelId; ///< 1 up to the number of channels
        /// Both go to the DSP as they are, undefined values too.
        AcmMode acmMode = {};
        AcmModePosition acmModePosition = {};

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the DSP
    /// refuses.
    using Response = StandardResponse;

    virtual ~CriSetAcmMode() = default;
};

/// Dispatches "CRI.SetAcmMode". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetAcmMode(const CriSetAcmMode::Command& command);

} // namespace zyr_top_api
