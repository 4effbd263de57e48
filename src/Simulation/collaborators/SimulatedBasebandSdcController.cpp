#include "SimulatedBasebandSdcController.h"

#include "DualStream.h"
#include "Hop.h"
#include "Processes.h"

namespace zyr_simulation
{

using zyr_top_api::BasebandSdcDadeStatus;
using zyr_top_api::BasebandSdcStatusData;
using zyr_top_api::ETIResult;

void SimulatedBasebandSdcController::beginCalibration() const
{
    sdc().dade = BasebandSdcDadeStatus::CalibrationOngoing;
    sdc().dadeEndsAt = node().settleAfter(kDadeCalibrationTime);
}

ETIResult SimulatedBasebandSdcController::start(bool isCalibrationRequired)
{
    return perform<ETIResult>("start", [&] {
        sdc().isStarted = true;
        if (isCalibrationRequired) {
            beginCalibration();
        }
    });
}

ETIResult SimulatedBasebandSdcController::stop()
{
    return perform<ETIResult>("stop", [&] {
        sdc().isStarted = false;
        sdc().dade = BasebandSdcDadeStatus::CalibrationNotStarted;
    });
}

ETIResult SimulatedBasebandSdcController::startDadeCalibration()
{
    return perform<ETIResult>("startDadeCalibration", [&] {
        if (!sdc().isStarted) {
            return zyr_top_api::eTI_E_FAILED;
        }
        beginCalibration();
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
        if (sdc().dade == BasebandSdcDadeStatus::CalibrationOngoing) {
            return zyr_top_api::eTI_W_ALREADY_STARTED;
        }
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
    return locked([&] { return sdc().isStarted; });
}

BasebandSdcStatusData SimulatedBasebandSdcController::getStatus()
{
    return locked([&] {
        const auto snir = channel().receiver.snir;
        const auto xpi = crossPolarIsolation(node(), channel());
        BasebandSdcStatusData data;
        if (sdc().mainEnabled) {
            data.snirMain = -snir;
            data.xpiMain = xpi;
        }
        if (sdc().diversityEnabled) {
            data.snirDiversity = -(snir - kDiversityLoss_dBTenths);
            data.xpiDiversity = xpi - kDiversityLoss_dBTenths;
        }
        data.gain = sdc().mainEnabled && sdc().diversityEnabled ? kCombiningGain_dBTenths : 0;
        return data;
    });
}

BasebandSdcDadeStatus SimulatedBasebandSdcController::getDadeStatus()
{
    return locked([&] { return sdc().dade; });
}

std::int32_t SimulatedBasebandSdcController::getDadeDelay()
{
    return locked([&] {
        return sdc().dade == BasebandSdcDadeStatus::Calibrated ? sdc().mainData - sdc().diversityData : 0;
    });
}

std::uint32_t SimulatedBasebandSdcController::getCalibrationData()
{
    return locked([&] {
        return static_cast<std::uint32_t>(sdc().mainData) |
               (static_cast<std::uint32_t>(sdc().diversityData) << 16U);
    });
}

} // namespace zyr_simulation
