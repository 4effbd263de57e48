#include "SimulatedBasebandSdcController.h"

#include "DualStream.h"
#include "Processes.h"

namespace zyr_simulation
{

using zyr_top_api::BasebandSdcDadeStatus;
using zyr_top_api::BasebandSdcStatusData;
using zyr_top_api::ETIResult;
using zyr_top_api::SdcStatus;

namespace
{

/// What the second antenna's isolation lies below the first one's.
constexpr std::int32_t kDiversityXpiLoss_dBTenths = 15;

} // namespace

void SimulatedBasebandSdcController::switchTo(bool isStarted, bool calibrates) const
{
    sdc().isWanted = isStarted;
    sdc().calibratesWhenStarted = calibrates;
    sdc().switchesAt = node().settleAfter(kBasebandSdcSwitchTime);
}

ETIResult SimulatedBasebandSdcController::start(bool isCalibrationRequired)
{
    return perform<ETIResult>("start", [&] {
        if (sdc().isStarted && isCalibrationRequired) {
            beginCalibration(node(), sdc());
        }
        switchTo(true, isCalibrationRequired);
    });
}

ETIResult SimulatedBasebandSdcController::stop()
{
    return perform<ETIResult>("stop", [&] { switchTo(false, false); });
}

ETIResult SimulatedBasebandSdcController::startDadeCalibration()
{
    return perform<ETIResult>("startDadeCalibration", [&] {
        if (!sdc().isStarted) {
            return zyr_top_api::eTI_E_FAILED;
        }
        beginCalibration(node(), sdc());
        return zyr_top_api::eTI_S_OK;
    });
}

ETIResult SimulatedBasebandSdcController::abortDadeCalibration()
{
    return perform<ETIResult>("abortDadeCalibration", [&] {
        if (sdc().dade == BasebandSdcDadeStatus::CalibrationOngoing) {
            sdc().dade = BasebandSdcDadeStatus::CalibrationStopping;
            sdc().dadeEndsAt = node().settleAfter(kDadeStopTime);
        }
    });
}

ETIResult SimulatedBasebandSdcController::resetDadeCalibration()
{
    return perform<ETIResult>("resetDadeCalibration", [&] {
        if (sdc().dade == BasebandSdcDadeStatus::CalibrationOngoing ||
            sdc().dade == BasebandSdcDadeStatus::CalibrationStopping) {
            return zyr_top_api::eTI_W_ALREADY_STARTED;
        }
        sdc().isCalibrated = false;
        sdc().dade = BasebandSdcDadeStatus::CalibrationNotStarted;
        return zyr_top_api::eTI_S_OK;
    });
}

ETIResult SimulatedBasebandSdcController::setDadeParams(std::uint16_t mainData, std::uint16_t diversityData)
{
    return perform<ETIResult>("setDadeParams", [&] {
        sdc().mainData = mainData;
        sdc().diversityData = diversityData;
    });
}

ETIResult SimulatedBasebandSdcController::setChannels(bool mainEnabled, bool diversityEnabled)
{
    return perform<ETIResult>("setChannels", [&] {
        sdc().mainEnabled = mainEnabled;
        sdc().diversityEnabled = diversityEnabled;
    });
}

bool SimulatedBasebandSdcController::isStarted()
{
    return read([&] { return sdc().isStarted; });
}

BasebandSdcStatusData SimulatedBasebandSdcController::getStatus()
{
    return read([&] {
        const auto& paths = channel().receiver.diversity;
        const auto xpi = crossPolarDiscrimination_dBTenths(node(), channel());
        BasebandSdcStatusData data;
        if (sdc().mainEnabled) {
            data.snirMain = -paths.mainSnir;
            data.xpiMain = xpi;
        }
        if (sdc().diversityEnabled) {
            data.snirDiversity = -paths.snir;
            data.xpiDiversity = xpi - kDiversityXpiLoss_dBTenths;
        }
        const bool combines = sdc().isStarted && channel().sdc.operation != SdcStatus::Active;
        data.gain = combines ? paths.gain : 0;
        return data;
    });
}

BasebandSdcDadeStatus SimulatedBasebandSdcController::getDadeStatus()
{
    return read([&] { return sdc().dade; });
}

std::int32_t SimulatedBasebandSdcController::getDadeDelay()
{
    return read([&] { return sdc().isCalibrated ? sdc().mainData - sdc().diversityData : 0; });
}

std::uint32_t SimulatedBasebandSdcController::getCalibrationData()
{
    return read([&] {
        return static_cast<std::uint32_t>(sdc().mainData) |
               (static_cast<std::uint32_t>(sdc().diversityData) << 16U);
    });
}

} // namespace zyr_simulation
