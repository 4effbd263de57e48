#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>

namespace zyr_top_api
{

/// Mutes or unmutes the XPIC slave of one radio channel.
class ZYR_EXPORT CriXpicSlaveMute
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.XpicSlaveMute",
        .className = "CriXpicSlaveMute",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriXpicSlaveMute",
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< 1 up to the number of channels
        bool mute = false;           ///< true mutes, false unmutes

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the XPIC
    /// controller refuses.
    using Response = StandardResponse;

    virtual ~CriXpicSlaveMute() = default;
};

/// Dispatches "CRI.XpicSlaveMute". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criXpicSlaveMute(const CriXpicSlaveMute::Command& command);

} // namespace zyr_top_api
