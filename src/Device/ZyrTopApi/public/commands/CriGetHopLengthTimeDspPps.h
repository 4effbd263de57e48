#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Gives the hop length time that a channel's pulse per second has measured.
class ZYR_EXPORT CriGetHopLengthTimeDspPps
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.GetHopLengthTimeDspPps",
        .className = "CriGetHopLengthTimeDspPps",
        .responseLabel = "CriGetHopLengthTimeDspPps::Response",
        .traceChannel = "ZYR.CriGetHopLengthTimeDspPps", // sic: no "TI."
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< 1 up to the number of channels

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the DSP
    /// refuses.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::uint32_t ppsHopLengthTime = 0; ///< in nanoseconds

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriGetHopLengthTimeDspPps() = default;
};

/// Dispatches "CRI.GetHopLengthTimeDspPps". From any thread; waits for other commands.
ZYR_EXPORT CriGetHopLengthTimeDspPps::Response
criGetHopLengthTimeDspPps(const CriGetHopLengthTimeDspPps::Command& command);

} // namespace zyr_top_api
