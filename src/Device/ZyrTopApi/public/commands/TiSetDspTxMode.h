#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: sets the signal that the DSP of a channel sends on its main chain.
class ZYR_EXPORT TiSetDspTxMode
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.SetDspTxMode",
        .className = "TiSetDspTxMode",
        .responseLabel = "TiSetDspTxMode::Response",
        .traceChannel = "ZYR.TI.SetDspTxMode",
        .route = Route::Direct,
    };

    struct Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        std::string OutputSignal;           ///< "Normal", "OneTone", "TwoTone" or "Mute"
        std::int32_t SweepTime = 0;         ///< in the DSP's unit
        std::int32_t ToneFrequency = 0;     ///< in the DSP's unit
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels and for another signal;
    /// `eTI_E_FAILED` if the DSP refuses.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::string OutputSignal; ///< these three are the command's
        std::int32_t SweepTime = 0;
        std::int32_t ToneFrequency = 0;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiSetDspTxMode() = default;
};

} // namespace zyr_top_api
