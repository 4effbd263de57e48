#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"
#include "RauPowerMode.h"

namespace zyr_top_api
{

/// Switches the power mode of the transceivers of a radio unit. A mode that doesn't fit the transceiver is
/// told in the trace and handed on: the radio unit answers for itself.
class ZYR_EXPORT CriSetRauPowerMode
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.CriSetRauPowerMode", // sic: "Cri" twice
        .className = "CriSetRauPowerMode",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetRauPowerModeImpl",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        RauPowerMode rauPowerMode;

        void print(TextWriter& text) const;
    };

    /// `eTI_E_FAILED` for a channel above the number of channels and if the radio unit refuses.
    using Response = StandardResponse;

    virtual ~CriSetRauPowerMode() = default;
};

/// Dispatches "CRI.CriSetRauPowerMode". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetRauPowerMode(const CriSetRauPowerMode::Command& command);

} // namespace zyr_top_api
