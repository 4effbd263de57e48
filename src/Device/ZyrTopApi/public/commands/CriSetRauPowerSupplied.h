#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// Gives the radio unit of a channel power, or takes it away.
class ZYR_EXPORT CriSetRauPowerSupplied
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetRauPowerSupplied",
        .className = "CriSetRauPowerSupplied",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.CRI.ManageRauPowerSupplied", // sic: "Manage"
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        std::uint32_t RauPowerSupplied = 0; ///< reaches the radio unit unchanged

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; success whatever the radio unit
    /// answers.
    using Response = StandardResponse;

    virtual ~CriSetRauPowerSupplied() = default;
};

/// Dispatches "CRI.SetRauPowerSupplied". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetRauPowerSupplied(const CriSetRauPowerSupplied::Command& command);

} // namespace zyr_top_api
