#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "Optional.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: reads and sets the gain at radio frequency of the transmitter chain of channel 1, with its
/// bar. Gains are in the chain's unit.
class ZYR_EXPORT TiManageTXRFGain
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManageTXRFGain",
        .className = "TiManageTXRFGain",
        .responseLabel = "TiManageTXRFGain::Response",
        .traceChannel = "ZYR.TI.ManageTXRFGain",
        .route = Route::Direct,
    };

    struct Command
    {
        general_classes::Optional<std::uint32_t>
            radioChannelId;                               ///< 1 if given: the chain of one channel only
        general_classes::Optional<bool> barOn;            ///< new state of the bar
        general_classes::Optional<std::int32_t> txRfGain; ///< requested gain
    };

    /// `eTI_E_INVALID_ARGUMENT` for another channel than 1 and for a gain that is refused; the bar
    /// stays set then.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::uint32_t radioChannelId = 1;
        bool barOn = false;
        std::int32_t txRfGain = 0; ///< the requested gain if there was one, else the one read
        std::int32_t reducedGainAmplifier1 = 0;
        std::int32_t reducedGainAmplifier2 = 0;
        std::int32_t reducedGainAmplifier3 = 0;
        std::int32_t reducedGainAmplifier4 = 0;
        std::int32_t reducedGainAmplifier5 = 0;
        std::int32_t reducedGainAmplifier6 = 0;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiManageTXRFGain() = default;
};

} // namespace zyr_top_api
