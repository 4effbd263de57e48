#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "ModulationAndCoding.h"
#include "RadioChannel.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace zyr_top_api
{

/// Tells a channel the highest output power that the far end of its link can give at each modulation. The
/// ACM thresholds depend on it. A DSP that can't be reached is no failure: the values are kept for later.
class ZYR_EXPORT CriSetFarEndPmaxCapability
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetFarEndPmaxCapability",
        .className = "CriSetFarEndPmaxCapability",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetFarEndPmaxCapability",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        /// Powers in the ACM handler's unit. The coding doesn't count: of several with the same constellation
        /// the first one does.
        std::vector<std::pair<ModulationAndCoding, std::int32_t>> maxRfOutputPowerFarEnd;

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_PARAMETER_INVALID` for an
    /// undefined modulation; `eTI_E_FAILED` if the ACM handler refuses, and ACM stays muted then.
    using Response = StandardResponse;

    virtual ~CriSetFarEndPmaxCapability() = default;
};

/// Dispatches "CRI.SetFarEndPmaxCapability". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetFarEndPmaxCapability(const CriSetFarEndPmaxCapability::Command& command);

} // namespace zyr_top_api
