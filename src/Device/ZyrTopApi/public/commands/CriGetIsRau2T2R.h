#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Asks whether a radio unit has two transmitters and two receivers.
class ZYR_EXPORT CriGetIsRau2T2R
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.CriGetIsRau2T2R", // sic: "Cri" twice
        .className = "CriGetIsRau2T2R",
        .responseLabel = "CriGetIsRau2T2R::Response",
        .traceChannel = "ZYR.TI.CriGetIsRau2T2RImpl",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels

        void print(TextWriter& text) const;
    };

    /// `eTI_E_PARAMETER_INVALID` for a channel above the number of channels; `eTI_E_FAILED` if there is no
    /// handler.
    class ZYR_EXPORT Response : public StandardResponse
    {
      public:
        std::uint32_t NumberOfChannels = 0; ///< sic: 0 in every answer
        bool IsRau2T2R = false;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriGetIsRau2T2R() = default;
};

/// Dispatches "CRI.CriGetIsRau2T2R". From any thread; waits for other commands.
ZYR_EXPORT CriGetIsRau2T2R::Response criGetIsRau2T2R(const CriGetIsRau2T2R::Command& command);

} // namespace zyr_top_api
