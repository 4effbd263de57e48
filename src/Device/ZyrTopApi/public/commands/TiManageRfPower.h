#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "ForceLoopMode.h"
#include "Optional.h"
#include "RadioChannel.h"
#include "TxRequestedStatus.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: forces the power settings of a channel. Each option that the command holds overrides one
/// value, each that it doesn't hold keeps the value in force; all nine go to power control in one call and
/// are read back. Powers are in the power controller's units.
class ZYR_EXPORT TiManageRfPower
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManageRfPower",
        .className = "TiManageRfPower",
        .responseLabel = "TiManageRfPower::Response",
        .traceChannel = "ZYR.TI.TiManageRfPowerImpl",
        .route = Route::Direct,
    };

    struct Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels, not checked by the command
        general_classes::Optional<bool> TXRequestedStatusBarOn;
        general_classes::Optional<TxRequestedStatus> TXRequestedStatus;
        general_classes::Optional<bool> TargetRFInputPowerBarOn;
        general_classes::Optional<std::int32_t> TargetRFInputPower;
        general_classes::Optional<bool> RFOutputPowerBarOn;
        general_classes::Optional<std::int32_t> MinRFOutputPower;
        general_classes::Optional<std::int32_t> MaxRFOutputPower;
        general_classes::Optional<bool> IgnorePowerLimits;
        general_classes::Optional<zyr_top_api::ForceLoopMode> ForceLoopMode;
    };

    /// `eTI_E_FAILED` for an object that was not initialised and if power control refuses.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        MutableRadioChannel RadioChannelID;
        bool TXRequestedStatusBarOn = false;
        TxRequestedStatus TXRequestedStatus = static_cast<TxRequestedStatus>(2); ///< at first undefined
        bool TargetRFInputPowerBarOn = false;
        std::int32_t TargetRFInputPower = 0;
        bool RFOutputPowerBarOn = false;
        std::int32_t MinRFOutputPower = 0;
        std::int32_t MaxRFOutputPower = 0;
        bool IgnorePowerLimits = false;
        zyr_top_api::ForceLoopMode ForceLoopMode =
            static_cast<zyr_top_api::ForceLoopMode>(4); ///< at first undefined

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiManageRfPower() = default;
};

} // namespace zyr_top_api
