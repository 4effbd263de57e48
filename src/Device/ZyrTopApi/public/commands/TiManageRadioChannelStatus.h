#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "CommandMessageBase.h"
#include "Export.h"
#include "RadioChannel.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: the status of a radio channel with the current modulations beside the lowest, the lowest
/// level and SNIR, and the counters of the receiver's lock. Values are in the units of the collaborators.
class ZYR_EXPORT TiManageRadioChannelStatus : public CommandMessageBase
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManageRadioChannelStatus",
        .className = "TiManageRadioChannelStatus",
        .responseLabel = "TiManageRadioChannelStatus::Response",
        .traceChannel = "ZYR.TI.TiManageRadioChannelStatus",
        .route = Route::Direct,
    };

    struct Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        bool ResetLowestValues = false;     ///< reading resets the lowest values
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if a reading
    /// fails, with all data at their defaults.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::string TXActualStatus;     ///< "On", "Off", "Standby" or "UNDEFINED"
        std::string RadioChannelStatus; ///< "Up" or "Down"
        std::string ActualTxModulation;
        std::string ActualRxModulation;
        std::string LowestTxModulation;
        std::string LowestRxModulation;
        std::int32_t ActualRFInputPower = -99;
        std::int32_t LowestRFInputPower = 0; ///< -9999: not supported
        std::int32_t ReportedRFOutputPower = -99;
        std::int32_t ActualSNIR = 0;
        std::int32_t LowestSNIR = 0;
        std::int32_t ErroredBlocks = 0;
        std::int32_t EbSinceLastRxLock = 0; ///< errored blocks since the receiver last locked
        std::int32_t RxLockedCounter = 0;   ///< how often the receiver has locked
        std::int32_t TxFrequency = 0;
        std::int32_t RxFrequency = 0;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    /// "This is a TI version of the CRI.GetRadioChannelStatus".
    std::string getCommandDescription() override;
};

} // namespace zyr_top_api
