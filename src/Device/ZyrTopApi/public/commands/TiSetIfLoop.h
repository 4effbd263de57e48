#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>

namespace zyr_top_api
{

/// Test command: closes or opens the loop at intermediate frequency of a channel.
class ZYR_EXPORT TiSetIfLoop
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.SetIfLoop",
        .className = "TiSetIfLoop",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.TiSetIfLoop",
        .route = Route::Direct,
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< radio channel, counted from 1
        std::uint32_t ifLoop = 0;    ///< 0 opens the loop, any other value closes it

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` for an object that
    /// was not initialised and if the driver refuses.
    using Response = StandardResponse;

    virtual ~TiSetIfLoop() = default;
};

} // namespace zyr_top_api
