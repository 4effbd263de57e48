#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "ModulationAndCoding.h"
#include "RadioChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// Tells a channel's output power calculator of the booster behind the radio. The numbers are in the
/// calculator's units and pass through unchanged.
class ZYR_EXPORT CriSetBoosterPresence
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetBoosterPresence",
        .className = "CriSetBoosterPresence",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetBooster", // sic: shorter than the class
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        std::int32_t boosterPresence = 0;   ///< whether there is one
        std::int32_t boosterGain = 0;
        std::int32_t boosterMaxInputPower = 0; ///< highest power that it takes in
        ModulationAndCoding boosterMaxMod =
            {}; ///< highest modulation that it takes; its coding doesn't count

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` for one without a calculator; `eTI_E_FAILED` if that answers
    /// anything but 0.
    using Response = StandardResponse;

    virtual ~CriSetBoosterPresence() = default;
};

/// Dispatches "CRI.SetBoosterPresence". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetBoosterPresence(const CriSetBoosterPresence::Command& command);

} // namespace zyr_top_api
