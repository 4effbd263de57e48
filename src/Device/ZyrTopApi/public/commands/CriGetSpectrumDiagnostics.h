#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "Optional.h"
#include "SpectrumDiagnostics.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zyr_top_api
{

/// Starts, stops and reads a spectrum scan of one radio channel.
class ZYR_EXPORT CriGetSpectrumDiagnostics
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.GetSpectrumDiagnostics",
        .className = "CriGetSpectrumDiagnostics",
        .responseLabel = "CriGetSpectrumDiagnostics::Response",
        .traceChannel = "ZYR.CriGetSpectrumDiagnostics", // sic: no "TI"
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t RadioChannelID = 1; ///< 1 up to the number of channels
        /// "channel-scan-start", "sub-band-scan-start", "scan-stop", "get-status", "get-result" or
        /// "get-scan-properties", exactly so.
        std::string RequestOption;
        /// Passed to the scan hardware by the two starts, which refuse to run without it, and by the stop,
        /// which throws `general_classes::BadOptional` without it.
        general_classes::Optional<std::uint32_t> DmSleep;

        std::string toString() const;
        void print(TextWriter& text) const;
    };

    /// Whatever the option: how the scan stands, and what the hardware offers.
    ///
    /// `eTI_E_INVALID_ARGUMENT` for every failure: a channel above the number of channels, an unknown option,
    /// a start without `DmSleep`, and a controller that refuses; then without status, progress and
    /// properties, but with the results that a failing read has given.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::string Status = "unknown";
        std::int32_t Progress = 0;                     ///< as the controller gives it
        std::vector<SpectrumDiagnosticsResult> Result; ///< filled by "get-result" alone, at most 500
        zyr_top_api::SpectrumDiagnosticsProperties SpectrumDiagnosticsProperties;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriGetSpectrumDiagnostics() = default;
};

/// Dispatches "CRI.GetSpectrumDiagnostics". From any thread; waits for other commands.
ZYR_EXPORT CriGetSpectrumDiagnostics::Response
criGetSpectrumDiagnostics(const CriGetSpectrumDiagnostics::Command& command);

} // namespace zyr_top_api
