#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "Optional.h"
#include "RadioChannel.h"
#include "TapsLogData.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: sets the tuning values of TAPS of a channel, drives its sample log, and always answers with
/// the present values. An option that is absent is left as it is; a failure leaves what was set before it.
class ZYR_EXPORT TiManageTaps
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManageTaps",
        .className = "TiManageTaps",
        .responseLabel = "TiManageTaps::Response",
        .traceChannel = "ZYR.TI.TiManageTaps",
        .route = Route::Direct,
    };

    enum class LogRequestOption : std::uint32_t
    {
        StartLog = 0,
        StopLog = 1,
        SetLogPeriod = 2,
        DumpLogToFile = 3,
        ReadSample = 4,
    };

    struct Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        general_classes::Optional<bool> TapsEnable;
        general_classes::Optional<TiManageTaps::LogRequestOption> LogRequestOption;
        general_classes::Optional<std::uint32_t> Time; ///< log period in seconds, for `SetLogPeriod`
        general_classes::Optional<std::int32_t> IdleRateOffset;
        general_classes::Optional<double> IdleRateThresholdFactor;
        general_classes::Optional<std::int32_t> Kvalue;
        general_classes::Optional<bool> HrlbEnabled;
    };

    /// `eTI_E_PARAMETER_INVALID` for a channel above the number of channels;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` for a channel without TAPS; `eTI_E_REQUIRED_INPUT_MISSING`
    /// for `SetLogPeriod` without `Time`; `eTI_E_INVALID_ARGUMENT` for another log request; `eTI_E_FAILED` if
    /// TAPS or its log refuses.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        MutableRadioChannel RadioChannelID;
        bool TapsEnable = false;
        std::int32_t IdleRateOffset = 0;
        double IdleRateThresholdFactor = 0.0;
        std::int32_t Kvalue = 0;
        bool TapsLogActive = false;
        std::uint32_t LogPeriodSec = 0;
        bool HrlbEnabled = false;
        general_classes::Optional<zyr_top_api::TapsLogData> TapsLogData; ///< what `ReadSample` gave

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiManageTaps() = default;
};

} // namespace zyr_top_api
