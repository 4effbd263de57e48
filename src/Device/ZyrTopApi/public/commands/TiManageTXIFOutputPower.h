#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "Optional.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: reads and sets the output power at intermediate frequency of the transmitter chain of
/// channel 1, with its bar. Powers are in the chain's unit. A setting that the chain refuses shows in the
/// power that is read back.
class ZYR_EXPORT TiManageTXIFOutputPower
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManageTXIFOutputPower",
        .className = "TiManageTXIFOutputPower",
        .responseLabel = "TiManageTXIFOutputPower::Response",
        .traceChannel = "ZYR.TI.ManageTXIFOutputPower",
        .route = Route::Direct,
    };

    struct Command
    {
        general_classes::Optional<std::uint32_t>
            radioChannelId;                        ///< 1 if given: the chain of one channel only
        general_classes::Optional<bool> txIfBarOn; ///< new state of the bar
        general_classes::Optional<std::int32_t> txIfOutputPower; ///< requested power
    };

    /// `eTI_E_INVALID_ARGUMENT` for another channel than 1.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::uint32_t radioChannelId = 1;
        bool txIfBarOn = false;
        std::int32_t txIfOutputPower = 0;
        std::int32_t dacValue = 0; ///< setting of the digital to analogue converter

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiManageTXIFOutputPower() = default;
};

} // namespace zyr_top_api
