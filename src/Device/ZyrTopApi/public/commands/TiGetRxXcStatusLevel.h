#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: reads the two status levels of the cross-connected receiver of a channel. Refused while the
/// test gate is closed.
class ZYR_EXPORT TiGetRxXcStatusLevel
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.GetRxXcStatusLevel",
        .className = "TiGetRxXcStatusLevel",
        .responseLabel = "TiGetRxXcStatusLevel::Response",
        .traceChannel = "ZYR.TI.TiGetRxXcStatusLevel",
        .route = Route::Gated,
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< radio channel, counted from 1

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` for an object that
    /// was not initialised and for a DSP that doesn't give the levels.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::int32_t rslCh0 = 0; ///< level of channel 0 of the cross-connection, in the DSP's unit
        std::int32_t rslCh1 = 0; ///< level of channel 1 of the cross-connection, in the DSP's unit

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiGetRxXcStatusLevel() = default;
};

/// Dispatches "TI.GetRxXcStatusLevel". From any thread; waits for other commands.
ZYR_EXPORT TiGetRxXcStatusLevel::Response tiGetRxXcStatusLevel(const TiGetRxXcStatusLevel::Command& command);

} // namespace zyr_top_api
