#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "PpsSource.h"

#include <cstdint>

namespace zyr_top_api
{

/// Sets where a channel's pulse per second comes from, and its offset.
class ZYR_EXPORT CriSetSourceDspPps
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetSourceDspPps",
        .className = "CriSetSourceDspPps",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetSourceDspPps",
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< 1 up to the number of channels
        PpsSource ppsSource = PpsSource::Internal;
        std::uint32_t ppsOffsetNanoSec = 0;

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the DSP
    /// refuses.
    using Response = StandardResponse;

    virtual ~CriSetSourceDspPps() = default;
};

/// Dispatches "CRI.SetSourceDspPps". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetSourceDspPps(const CriSetSourceDspPps::Command& command);

} // namespace zyr_top_api
