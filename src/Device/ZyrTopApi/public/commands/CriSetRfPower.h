#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "Optional.h"
#include "RadioChannel.h"
#include "TxRequestedStatus.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Sets the transmit power window of a channel, its administrative transmitter state and the ATPC fallback,
/// TAPS and HRLB options. Only on a channel whose DSP is configured; on any other, Off succeeds quietly.
/// Powers are in the power controller's units.
class ZYR_EXPORT CriSetRfPower
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetRFPower", // sic: unlike the class
        .className = "CriSetRfPower",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetRfPowerImpl",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        TxRequestedStatus txRequestedStatus = {};
        std::int32_t targetRfInputPower = 0;        ///< logged only
        std::int32_t targetRfInputPowerFarEnd = 0;  ///< passed to the power controller
        std::int32_t minRfOutputPower = 0;          ///< lower end of the output window
        std::int32_t maxRfOutputPower = 0;          ///< upper end of the output window
        std::uint32_t availableMaxPowerCutback = 0; ///< allowed cutback of the maximum power
        general_classes::Optional<bool> tapsEnable;
        general_classes::Optional<bool> hrlbEnabled;
        /// The three fallback options count only together. The fallback is off for a window of no width.
        general_classes::Optional<bool> atpcFallbackEnable;
        general_classes::Optional<std::int32_t> atpcFallbackOutputPower;
        general_classes::Optional<std::uint32_t> atpcFallbackTimer;

        std::string toString() const;
        void print(TextWriter& text) const;
    };

    /// `eTI_E_OPERATION_NOT_ALLOWED` if the DSP isn't configured and another state than Off is requested;
    /// `eTI_E_FAILED` for a channel above the number of channels and for a collaborator that refuses.
    using Response = StandardResponse;

    virtual ~CriSetRfPower() = default;
};

/// Dispatches "CRI.SetRFPower". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetRfPower(const CriSetRfPower::Command& command);

} // namespace zyr_top_api
