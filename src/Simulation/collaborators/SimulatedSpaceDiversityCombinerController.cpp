#include "SimulatedSpaceDiversityCombinerController.h"

#include "Processes.h"
#include "RadioType.h"

namespace zyr_simulation
{

using zyr_top_api::eTI_E_FAILED;
using zyr_top_api::eTI_S_OK;
using zyr_top_api::ETIResult;
using zyr_top_api::SdcPath;
using zyr_top_api::SdcStatus;

namespace
{

constexpr char kNoHardwareError = '0';

/// In samples.
constexpr std::int32_t kCalibratedDelay = 12;

} // namespace

bool SimulatedSpaceDiversityCombinerController::isThere() const
{
    return radioType(node().settings.radioType).features.SpaceDiversityCombinerCapable;
}

ETIResult SimulatedSpaceDiversityCombinerController::setSdcEnable(bool enable)
{
    return change("setSdcEnable", [&] {
        sdc().operation = enable ? SdcStatus::InProgress : SdcStatus::Inactive;
        sdc().operationEndsAt = node().settleAfter(kSdcSwitchTime);
        return eTI_S_OK;
    });
}

SdcStatus SimulatedSpaceDiversityCombinerController::getSdcOperStatus()
{
    return read([&] { return isThere() ? sdc().operation : SdcStatus::NoAnswer; });
}

ETIResult SimulatedSpaceDiversityCombinerController::setDadeCalibration(bool start)
{
    return change("setDadeCalibration", [&] {
        const auto standing = sdc().isCalibrated ? SdcStatus::Active : SdcStatus::Inactive;
        sdc().dade = start ? SdcStatus::InProgress : standing;
        sdc().dadeEndsAt = node().settleAfter(kDadeCalibrationTime);
        return eTI_S_OK;
    });
}

SdcStatus SimulatedSpaceDiversityCombinerController::getSdcDadeStatus()
{
    return read([&] { return isThere() ? sdc().dade : SdcStatus::NoAnswer; });
}

ETIResult SimulatedSpaceDiversityCombinerController::setSdcPath(SdcPath path)
{
    return change("setSdcPath", [&] {
        if (path != SdcPath::Main && path != SdcPath::Diversity && path != SdcPath::Auto) {
            return eTI_E_FAILED;
        }
        sdc().path = path;
        return eTI_S_OK;
    });
}

SdcPath SimulatedSpaceDiversityCombinerController::getSdcActualPath()
{
    return read([&] { return isThere() ? channel().receiver.diversity.path : SdcPath::Invalid; });
}

void SimulatedSpaceDiversityCombinerController::getSdcSignalStatus(char& hwErrorSdcMain,
                                                                   char& hwErrorSdcDiversity,
                                                                   std::int32_t& sdcInputPowerMain,
                                                                   std::int32_t& sdcInputPowerDiversity,
                                                                   std::int32_t& sdcGain)
{
    locked([&] {
        hwErrorSdcMain = kNoHardwareError;
        hwErrorSdcDiversity = kNoHardwareError;
        sdcInputPowerMain = channel().receiver.diversity.mainLevel;
        sdcInputPowerDiversity = channel().receiver.diversity.level;
        sdcGain = sdc().operation == SdcStatus::Active ? channel().receiver.diversity.gain : 0;
    });
}

ETIResult SimulatedSpaceDiversityCombinerController::setRlConfiguration(zyr_top_api::Modulation modulation,
                                                                        std::int32_t spacingCode,
                                                                        bool xpicEnabled)
{
    return change("setRlConfiguration", [&] {
        sdc().maxModulation = modulation;
        sdc().spacingCode = spacingCode;
        sdc().xpicEnabled = xpicEnabled;
        return eTI_S_OK;
    });
}

std::int32_t SimulatedSpaceDiversityCombinerController::getSdcDadeDelay()
{
    return read([&] { return sdc().isCalibrated ? kCalibratedDelay : 0; });
}

} // namespace zyr_simulation
