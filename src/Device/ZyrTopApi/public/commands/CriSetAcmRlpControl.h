#pragma once

#include "AcmMode.h"
#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

namespace zyr_top_api
{

/// Sets the RLP control of one radio channel's adaptive modulation.
class ZYR_EXPORT CriSetAcmRlpControl
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetAcmRlpControl",
        .className = "CriSetAcmRlpControl",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetAcmRlpControl",
    };

    struct ZYR_EXPORT Command
    {
        RadioChannel channelId;           ///< 1 up to the number of channels
        AcmRlpControl acmRlpControl = {}; ///< goes to the DSP as it is, undefined values too

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the DSP
    /// refuses.
    using Response = StandardResponse;

    virtual ~CriSetAcmRlpControl() = default;
};

/// Dispatches "CRI.SetAcmRlpControl". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetAcmRlpControl(const CriSetAcmRlpControl::Command& command);

} // namespace zyr_top_api
