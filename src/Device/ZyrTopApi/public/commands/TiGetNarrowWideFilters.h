#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: reads the selection of the narrow or wide filters. Always of the first channel.
class ZYR_EXPORT TiGetNarrowWideFilters
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.GetNarrowWideFilters",
        .className = "TiGetNarrowWideFilters",
        .responseLabel = "TiGetNarrowWideFilters::Response",
        .traceChannel = "ZYR.TI.GetNarrowWideFilters",
        .route = Route::Direct,
    };

    struct Command
    {
        std::uint32_t channelId = 1; ///< not read
    };

    /// `eTI_E_FAILED` if the DSP refuses.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::int32_t filter = 0; ///< the hardware's value

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiGetNarrowWideFilters() = default;
};

} // namespace zyr_top_api
