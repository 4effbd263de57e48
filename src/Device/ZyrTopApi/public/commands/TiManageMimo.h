#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "MimoCalibrationStatus.h"
#include "ModemChain.h"
#include "Optional.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test access to MIMO of one radio channel: receiver chain delay, diversity mute, configuration, calibration
/// of the cross-connect delay, and what the receivers measure. A request without fields reads alone.
class ZYR_EXPORT TiManageMimo
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManageMimo",
        .className = "TiManageMimo",
        .responseLabel = "TiManageMimo::Response",
        .traceChannel = "ZYR.TI.TiManageMimo",
        .route = Route::Gated,
    };

    struct ZYR_EXPORT Command
    {
        general_classes::Optional<std::uint32_t> radioChannelId; ///< channel 1 if left out
        /// Applies the configuration if it is there, whatever its value.
        general_classes::Optional<bool> configurationSet;
        general_classes::Optional<bool> diversityMuteSet; ///< true mutes, false unmutes
        /// Starts the calibration if it is there, whatever its value.
        general_classes::Optional<bool> crossConnectDelayCalibrationStart;
        /// Reads the status of the calibration, and nothing else, if it is there, whatever its value.
        general_classes::Optional<bool> crossConnectDelayCalibrationStatusGet;
        general_classes::Optional<std::int32_t> rxChainDelaySet;                  ///< its low 8 bits are used
        general_classes::Optional<bcm::types::ModemChain> rxChainDelayModemChain; ///< `Max` if left out

        std::string toString() const;
        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED`, without any data,
    /// if the DSP refuses or warns.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        using BaseResponse::BaseResponse;

        std::uint32_t radioChannelId = 1;
        std::int32_t gainDifferenceDbTenths = 0; ///< in tenths of a decibel
        std::uint32_t etaTenThousands = 0;       ///< in ten-thousandths
        bool slaveSweepInProgress = false;
        bool spatialSlaveSweepStatus = false;
        std::int32_t xpdDbTenths = 0;        ///< in tenths of a decibel
        std::int32_t spatialXpdDbTenths = 0; ///< in tenths of a decibel
        std::int32_t spatialCarrierOffsetHz = 0;
        std::int32_t slaveCarrierOffsetHz = 0;
        std::int32_t spatialSlaveCarrierOffsetHz = 0;
        bool diversityMute = false;
        /// Without a name while it has not been read.
        MimoCalibrationStatus calibrationStatus = static_cast<MimoCalibrationStatus>(6);

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiManageMimo() = default;
};

/// Dispatches "TI.ManageMimo". From any thread; waits for other commands.
ZYR_EXPORT TiManageMimo::Response tiManageMimo(const TiManageMimo::Command& command);

} // namespace zyr_top_api
