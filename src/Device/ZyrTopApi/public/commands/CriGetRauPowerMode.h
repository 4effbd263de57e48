#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"
#include "RauPowerMode.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Reads the power mode of the transceivers of a radio unit.
class ZYR_EXPORT CriGetRauPowerMode
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.CriGetRauPowerMode", // sic: "Cri" twice
        .className = "CriGetRauPowerMode",
        .responseLabel = "CriGetRauPowerMode::Response",
        .traceChannel = "ZYR.TI.CriGetRauPowerModeImpl",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        std::uint8_t trxId = 0;             ///< the transceiver, as in `RauPowerMode`

        void print(TextWriter& text) const;
    };

    /// `eTI_E_PARAMETER_INVALID` for a channel above the number of channels; `eTI_E_FAILED` if there is no
    /// handler and if the radio unit refuses.
    class ZYR_EXPORT Response : public StandardResponse
    {
      public:
        std::uint32_t RadioChannelID = 0; ///< sic: 0 in every answer
        RauPowerMode rauPowerMode;        ///< mode 0 if what was read is none of the transceiver's

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriGetRauPowerMode() = default;
};

/// Dispatches "CRI.CriGetRauPowerMode". From any thread; waits for other commands.
ZYR_EXPORT CriGetRauPowerMode::Response criGetRauPowerMode(const CriGetRauPowerMode::Command& command);

} // namespace zyr_top_api
