#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"
#include "RouteType.h"

#include <cstdint>

namespace zyr_top_api
{

/// Routes a radio channel to a destination.
class ZYR_EXPORT CriSetRouting
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetRouting",
        .className = "CriSetRouting",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetRouting",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID;    ///< 1 up to the number of channels
        std::uint32_t DestinationID = 0;       ///< where the channel is routed to
        zyr_top_api::RouteType RouteType = {}; ///< types without a meaning reach the route updater too

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; success whatever the route
    /// updater answers, and without one.
    using Response = StandardResponse;

    virtual ~CriSetRouting() = default;
};

/// Dispatches "CRI.SetRouting". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetRouting(const CriSetRouting::Command& command);

} // namespace zyr_top_api
