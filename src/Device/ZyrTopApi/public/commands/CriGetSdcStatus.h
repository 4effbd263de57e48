#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Gives the state of the space diversity combiner (SDC) of one radio channel. Powers, gain and delay are in
/// the combiner's units.
class ZYR_EXPORT CriGetSdcStatus
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.GetSdcStatus",
        .className = "CriGetSdcStatus",
        .responseLabel = "CriGetSdcStatus::Response",
        .traceChannel = "ZYR.TI.CriGetSdcStatus",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel channelId; ///< 1 up to the number of channels

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the combiner
    /// has no answer to one of the first three readings. All data are at their defaults then.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::string sdcOperStatus = "disabled";       ///< "disabled", "enabled", "in-progress" or "invalid"
        std::string sdcDadeStatus = "not-calibrated"; ///< or "calibrated", "in-progress", "invalid"
        std::string actualPath = "main";              ///< "main", "diversity", "auto" or "invalid"
        char hwErrorSdcMain = 0;                      ///< as the combiner gives it
        char hwErrorSdcDiversity = 0;                 ///< as the combiner gives it
        std::int32_t sdcInputPowerMain = 0;
        std::int32_t sdcInputPowerDiversity = 0;
        std::int32_t sdcGain = 0;
        std::int32_t sdcDadeDelay = 0;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriGetSdcStatus() = default;
};

/// Dispatches "CRI.GetSdcStatus". From any thread; waits for other commands.
ZYR_EXPORT CriGetSdcStatus::Response criGetSdcStatus(const CriGetSdcStatus::Command& command);

} // namespace zyr_top_api
