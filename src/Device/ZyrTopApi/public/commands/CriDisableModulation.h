#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "Optional.h"
#include "RadioChannel.h"

#include <string>

namespace zyr_top_api
{

/// Switches a channel between modulated traffic and an unmodulated single tone, or tells which it sends.
class ZYR_EXPORT CriDisableModulation
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.DisableModulation",
        .className = "CriDisableModulation",
        .responseLabel = "CriDisableModulation::Response",
        .traceChannel = "ZYR.TI.CriDisableModulation",
        .route = Route::Gated,
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        /// True for the single tone, false for traffic. Without it the command only reads.
        general_classes::Optional<bool> DisableModulation;

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the command was
    /// not initialised or the DSP fails.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        MutableRadioChannel RadioChannelID; ///< 1 in a failed response
        bool DisableModulation = false;     ///< true on the single tone alone; other test signals are false

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriDisableModulation() = default;
};

/// Dispatches "CRI.DisableModulation". From any thread; waits for other commands.
ZYR_EXPORT CriDisableModulation::Response criDisableModulation(const CriDisableModulation::Command& command);

} // namespace zyr_top_api
