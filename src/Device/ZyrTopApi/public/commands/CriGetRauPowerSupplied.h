#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <string>

namespace zyr_top_api
{

/// Asks whether the radio unit of a channel is supplied with power.
class ZYR_EXPORT CriGetRauPowerSupplied
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.GetRauPowerSupplied",
        .className = "CriGetRauPowerSupplied",
        .responseLabel = "CriGetRauPowerSupplied::Response",
        .traceChannel = "ZYR.CRI.GetRauPowerSupplied",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        RadioChannel RadioChannelID; ///< sic: 1 in every answer; not printed
        bool RauPowerSupplied = false;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriGetRauPowerSupplied() = default;
};

/// Dispatches "CRI.GetRauPowerSupplied". From any thread; waits for other commands.
ZYR_EXPORT CriGetRauPowerSupplied::Response
criGetRauPowerSupplied(const CriGetRauPowerSupplied::Command& command);

} // namespace zyr_top_api
