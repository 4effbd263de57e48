#pragma once

#include "AcmMode.h"
#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

namespace zyr_top_api
{

/// Tells how one radio channel adapts its modulation, and where that is decided.
class ZYR_EXPORT CriGetAcmMode
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.GetAcmMode",
        .className = "CriGetAcmMode",
        .responseLabel = "CriGetAcmMode::Response",
        .traceChannel = "ZYR.TI.CriGetAcmMode",
    };

    struct ZYR_EXPORT Command
    {
        RadioChannel channelId; ///< 1 up to the number of channels

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the DSP fails,
    /// with what it gave nevertheless. Prints as "Sent\n" always.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        AcmMode acmMode = AcmMode::Undefined;
        AcmModePosition acmModePosition = AcmModePosition::Undefined;
    };

    virtual ~CriGetAcmMode() = default;
};

/// Dispatches "CRI.GetAcmMode". From any thread; waits for other commands.
ZYR_EXPORT CriGetAcmMode::Response criGetAcmMode(const CriGetAcmMode::Command& command);

} // namespace zyr_top_api
