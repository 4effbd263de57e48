#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "Optional.h"
#include "PpfLockedStatus.h"
#include "RadioChannel.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Gives the whole picture of one radio channel. Levels, powers, ratios and frequencies are in the units of
/// the collaborators that measure them.
class ZYR_EXPORT CriGetRadioChannelStatus
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.GetRadioChannelStatus",
        .className = "CriGetRadioChannelStatus",
        .responseLabel = "CriGetRadioChannelStatus::Response",
        .traceChannel = "ZYR.TI.CriGetRadioChannelStatus",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        bool ResetErrorBlocks = false;      ///< reading resets the error block counters

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if a reading
    /// fails, with all data at their defaults, or if MIMO and XPIC run together, with part of the data.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::string TXActualStatus;     ///< "On", "Off", "Standby" or "UNDEFINED"
        std::string RadioChannelStatus; ///< "Up" or "Down"
        std::string ActualModulation;   ///< the same as `ActualTxModulation`
        std::string ActualTxModulation;
        std::string ActualRxModulation;
        std::int32_t ActualRFInputPower = -99;
        std::int32_t ReportedRFOutputPower = -99;
        std::int32_t ClockStatus = 0; ///< 1 in every answer that holds data
        std::int32_t ActualSNIR = 0;
        std::int32_t ErroredBlocks = 0;
        std::int32_t BackgroundBlocks = 0;
        std::int32_t ErrorBytes = 0;
        std::int32_t TotalBytes = 0;
        std::int32_t TxFrequency = 0;
        std::int32_t RxFrequency = 0;
        std::string ZyrState;
        std::uint32_t HopLengthLatency = 0; ///< nanoseconds
        bool XpicIsStarted = false;
        bool MimoIsStarted = false;
        bool IsMimo4x4 = false;
        bool BasebandSdcIsStarted = false; ///< not printed
        std::int32_t ActualXpi = 0;
        std::int32_t ActualEta = 0;
        std::string XpicStatus;
        std::string MimoStatus; ///< "Locked", "Unlocked", "Mute" or empty
        PpfLockedStatus PpfLocked = PpfLockedStatus::notSupported;
        std::int32_t ActualGainBasebandSdc = 0;
        std::int32_t ActualSnirMainBasebandSdc = 0;
        std::int32_t ActualSnirDiversityBasebandSdc = 0;
        std::int32_t ActualXpiMainBasebandSdc = 0;
        std::int32_t ActualXpiDiversityBasebandSdc = 0;
        std::string ActualDadeStatusBasebandSdc;
        std::int32_t ActualDadeDelayBasebandSdc = 0;
        std::uint16_t BasebandSdcCalibrationDataMain = 0;
        std::uint16_t BasebandSdcCalibrationDataDiversity = 0;
        general_classes::Optional<std::int32_t> RleStatus; ///< not printed

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriGetRadioChannelStatus() = default;
};

/// Dispatches "CRI.GetRadioChannelStatus". From any thread; waits for other commands.
ZYR_EXPORT CriGetRadioChannelStatus::Response
criGetRadioChannelStatus(const CriGetRadioChannelStatus::Command& command);

} // namespace zyr_top_api
