#pragma once

#include "IBasebandSdcController.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kBasebandSdcControllerOperations{
    "IBasebandSdcController", "start",         "stop",       "startDadeCalibration", "abortDadeCalibration",
    "resetDadeCalibration",   "setDadeParams", "setChannels"};

/// The space diversity combiner in the baseband of a channel. Starting and stopping take
/// `kBasebandSdcSwitchTime`, a calibration `kDadeCalibrationTime`, its stopping `kDadeStopTime`.
class SimulatedBasebandSdcController final
    : public SimulatedCollaborator<IBasebandSdcController, kBasebandSdcControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// Begins the calibration that is required when the start is over.
    zyr_top_api::ETIResult start(bool isCalibrationRequired) override;

    /// Forgets the calibration when the stop is over.
    zyr_top_api::ETIResult stop() override;

    /// Refused unless the combiner is started.
    zyr_top_api::ETIResult startDadeCalibration() override;

    /// Does nothing if no calibration is running. An older calibration holds.
    zyr_top_api::ETIResult abortDadeCalibration() override;

    /// Answers 0x1003 and does nothing while a calibration is running or stopping.
    zyr_top_api::ETIResult resetDadeCalibration() override;
    zyr_top_api::ETIResult setDadeParams(std::uint16_t mainData, std::uint16_t diversityData) override;
    zyr_top_api::ETIResult setChannels(bool mainEnabled, bool diversityEnabled) override;
    bool isStarted() override;

    /// In tenths of a dB. SNIR is given as a noise ratio, that is negated; a path that is off has none. The
    /// gain is there while this combiner combines.
    zyr_top_api::BasebandSdcStatusData getStatus() override;
    zyr_top_api::BasebandSdcDadeStatus getDadeStatus() override;

    /// What the parameters of the two paths differ by, while calibrated.
    std::int32_t getDadeDelay() override;
    std::uint32_t getCalibrationData() override;

  private:
    BasebandSdcState& sdc() const { return channel().basebandSdc; }
    void switchTo(bool isStarted, bool calibrates) const;
};

} // namespace zyr_simulation
