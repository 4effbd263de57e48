#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"
#include "RadioRestartStatus.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zyr_top_api
{

/// Restarts the radio unit of a channel in steps that the caller drives: trigger the restart, poll its status
/// until it has succeeded or failed, end it. No step waits, and nothing forces their order.
class ZYR_EXPORT CriRestartRadio
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.RestartRadio",
        .className = "CriRestartRadio",
        .responseLabel = "CriRestartRadio::Response",
        .traceChannel = "ZYR.CriRestartRadioImpl", // sic: without "TI."
    };

    enum class Action : std::uint32_t
    {
        TriggerRestart = 1, ///< a cold restart; only of a radio unit that is available
        GetStatus = 2,
        EndRestart = 3,
    };

    /// The text of an action, "Invalid" for a value without one.
    static std::string_view actionToString(Action value);

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        CriRestartRadio::Action Action = {};

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` for a restart of a
    /// radio unit that isn't available and for an unknown action.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        RadioRestartStatus Status = {}; ///< 0 on a failure

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriRestartRadio() = default;
};

/// Dispatches "CRI.RestartRadio". From any thread; waits for other commands.
ZYR_EXPORT CriRestartRadio::Response criRestartRadio(const CriRestartRadio::Command& command);

} // namespace zyr_top_api
