#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: reads the loop at intermediate frequency of a channel.
class ZYR_EXPORT TiGetIfLoop
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.GetIfLoop",
        .className = "TiGetIfLoop",
        .responseLabel = "TiGetIfLoop::Response",
        .traceChannel = "ZYR.TI.TiGetIfLoop",
        .route = Route::Direct,
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< radio channel, counted from 1

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` for an object that
    /// was not initialised and if the driver refuses.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::uint32_t ifLoop = 0;   ///< the driver's state, 0 open
        std::uint32_t barState = 0; ///< always 0

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiGetIfLoop() = default;
};

} // namespace zyr_top_api
