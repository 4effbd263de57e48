#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>

namespace zyr_top_api
{

/// Mutes or unmutes the MIMO diversity path of one radio channel.
class ZYR_EXPORT CriMimoSpatialMute
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.MimoSpatialMute",
        .className = "CriMimoSpatialMute",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriMimoSpatialMute",
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< 1 up to the number of channels
        bool mute = false;           ///< true mutes, false unmutes

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the MIMO
    /// controller refuses.
    using Response = StandardResponse;

    virtual ~CriMimoSpatialMute() = default;
};

/// Dispatches "CRI.MimoSpatialMute". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criMimoSpatialMute(const CriMimoSpatialMute::Command& command);

} // namespace zyr_top_api
