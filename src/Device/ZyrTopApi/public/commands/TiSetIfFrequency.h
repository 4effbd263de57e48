#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>

namespace zyr_top_api
{

/// Test command: hands a transmit or receive intermediate frequency to the DSP of a channel.
class ZYR_EXPORT TiSetIfFrequency
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.SetIfFrequency",
        .className = "TiSetIfFrequency",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.SetIfFrequency",
        .route = Route::Direct,
    };

    struct Command
    {
        std::uint32_t channelId = 1; ///< radio channel, counted from 1
        std::uint32_t direction = 0; ///< 0 transmit, 1 receive
        std::int32_t frequency = 0;  ///< in the DSP's unit
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels and for another direction;
    /// `eTI_E_FAILED` if the DSP refuses.
    using Response = StandardResponse;

    virtual ~TiSetIfFrequency() = default;
};

} // namespace zyr_top_api
