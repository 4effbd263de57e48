#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>

namespace zyr_top_api
{

/// Test command: selects the narrow or wide filters. Always of the first channel.
class ZYR_EXPORT TiSetNarrowWideFilters
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.SetNarrowWideFilters",
        .className = "TiSetNarrowWideFilters",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.SetNarrowWideFilters",
        .route = Route::Direct,
    };

    struct Command
    {
        std::uint32_t channelId = 1; ///< not read
        std::int32_t filter = 0;     ///< the value for the hardware
    };

    /// `eTI_E_FAILED` if the DSP refuses; the text tells why.
    using Response = StandardResponse;

    virtual ~TiSetNarrowWideFilters() = default;
};

} // namespace zyr_top_api
