#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// Tells the radio unit of a channel which frequency sub-band is active.
class ZYR_EXPORT CriSetActiveSubBand
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetActiveSubBand",
        .className = "CriSetActiveSubBand",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetActiveSubBand",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        std::uint32_t subBand = 0;          ///< the low byte reaches the radio unit

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the radio unit
    /// refuses.
    using Response = StandardResponse;

    virtual ~CriSetActiveSubBand() = default;
};

/// Dispatches "CRI.SetActiveSubBand". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetActiveSubBand(const CriSetActiveSubBand::Command& command);

} // namespace zyr_top_api
