#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: reads the signal that the DSP of a channel sends on its main and on its cross-connected
/// chain.
class ZYR_EXPORT TiGetDspTxMode
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.GetDspTxMode",
        .className = "TiGetDspTxMode",
        .responseLabel = "TiGetDspTxMode::Response",
        .traceChannel = "ZYR.TI.GetDspTxMode",
        .route = Route::Direct,
    };

    struct Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the DSP
    /// refuses. The main chain's values stay when the other chain can't be read.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::string OutputSignal;   ///< "NormalOperation", "OneTone", "TwoTone", "Mute" or "UNDEFINED"
        std::int32_t SweepTime = 0; ///< in the DSP's unit, as all below
        std::int32_t ToneFrequency = 0;
        std::string CrossConnectOutputSignal;
        std::int32_t CrossConnectSweepTime = 0;
        std::int32_t CrossConnectToneFrequency = 0;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiGetDspTxMode() = default;
};

} // namespace zyr_top_api
