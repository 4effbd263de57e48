#pragma once

#include "BasebandSdcStatus.h"
#include "ETIResult.h"
#include "IInterface.h"

#include <cstdint>
#include <string>

/// The space diversity combiner (SDC) in the baseband of one channel. Of its results 0x8000 alone is a
/// failure.
class ZYR_EXPORT IBasebandSdcController : public IInterface
{
  public:
    /// "IBasebandSdcController_<n>", under which the controller of a channel is published, without number for
    /// 0.
    static std::string interfaceName(unsigned channel)
    {
        return IInterface::interfaceName("IBasebandSdcController", channel);
    }

    /// Starts the combiner, with a calibration if one is required. Called by `CriSetBasebandSdcEnable`.
    virtual zyr_top_api::ETIResult start(bool isCalibrationRequired) = 0;

    /// Stops the combiner. Called by `CriSetBasebandSdcEnable`.
    virtual zyr_top_api::ETIResult stop() = 0;

    /// Starts a DADE calibration. Called by `CriSetBasebandSdcDadeCalibration`.
    virtual zyr_top_api::ETIResult startDadeCalibration() = 0;

    /// Aborts a DADE calibration. Called by `CriSetBasebandSdcDadeCalibration`.
    virtual zyr_top_api::ETIResult abortDadeCalibration() = 0;

    /// Forgets the DADE calibration. Called by `CriSetBasebandSdcDadeResetCalibration`.
    /// @return 0x1003 exactly if nothing was done since a calibration is running: success, with a line in the
    /// log.
    virtual zyr_top_api::ETIResult resetDadeCalibration() = 0;

    /// Sets the DADE parameters of both paths. Called by `CriSetBasebandSdcDadeParams`.
    virtual zyr_top_api::ETIResult setDadeParams(std::uint16_t mainData, std::uint16_t diversityData) = 0;

    /// Switches both paths on or off. Called by `CriSetBasebandSdcChannel`.
    virtual zyr_top_api::ETIResult setChannels(bool mainEnabled, bool diversityEnabled) = 0;

    // The status, called by `CriGetRadioChannelStatus`.

    /// Whether the combiner has been started. Asked twice, and once more when the command is initialised.
    virtual bool isStarted() = 0;

    /// What the combiner measures.
    virtual zyr_top_api::BasebandSdcStatusData getStatus() = 0;

    /// How the DADE calibration stands.
    virtual zyr_top_api::BasebandSdcDadeStatus getDadeStatus() = 0;

    /// The DADE delay.
    virtual std::int32_t getDadeDelay() = 0;

    /// The DADE parameters as `setDadeParams` takes them: main path in the low half, diversity in the high
    /// half.
    virtual std::uint32_t getCalibrationData() = 0;
};
