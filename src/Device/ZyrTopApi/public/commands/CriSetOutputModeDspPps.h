#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "PpsOutputMode.h"

#include <cstdint>

namespace zyr_top_api
{

/// Sets whether a channel's pulse per second is put out.
class ZYR_EXPORT CriSetOutputModeDspPps
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetOutputModeDspPps",
        .className = "CriSetOutputModeDspPps",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetOutputModeDspPps",
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< 1 up to the number of channels
        PpsOutputMode ppsOutputMode = PpsOutputMode::Off;

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the DSP
    /// refuses.
    using Response = StandardResponse;

    virtual ~CriSetOutputModeDspPps() = default;
};

/// Dispatches "CRI.SetOutputModeDspPps". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetOutputModeDspPps(const CriSetOutputModeDspPps::Command& command);

} // namespace zyr_top_api
