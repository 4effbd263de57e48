#pragma once

#include "Description.h"
#include "TiManageRfPowerImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManageRfPowerImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageRfPower::Command;
    using Response = zyr_top_api::TiManageRfPower::Response;

    static constexpr std::string_view help =
        "Forces the power settings of a radio channel; what is left out keeps the value in force.";
    static constexpr Group group = Group::TestPower;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::TXRequestedStatusBarOn>(
            "whether the requested transmitter state is barred to commands"),
        field<&Command::TXRequestedStatus>("requested transmitter state"),
        field<&Command::TargetRFInputPowerBarOn>("whether the target input power is barred to commands"),
        field<&Command::TargetRFInputPower>("input power that is aimed at", {.unit = "0.1 dBm"}),
        field<&Command::RFOutputPowerBarOn>("whether the output power window is barred to commands"),
        field<&Command::MinRFOutputPower>("lower end of the output power window", {.unit = "0.1 dBm"}),
        field<&Command::MaxRFOutputPower>("upper end of the output power window", {.unit = "0.1 dBm"}),
        field<&Command::IgnorePowerLimits>("whether the window may leave the limits of the radio"),
        field<&Command::ForceLoopMode>("loop in which power control is held"),
    };
    static constexpr std::array response{
        field<&Response::RadioChannelID>("radio channel"),
        field<&Response::TXRequestedStatusBarOn>(
            "whether the requested transmitter state is barred to commands"),
        field<&Response::TXRequestedStatus>("requested transmitter state"),
        field<&Response::TargetRFInputPowerBarOn>("whether the target input power is barred to commands"),
        field<&Response::TargetRFInputPower>("input power that is aimed at", {.unit = "0.1 dBm"}),
        field<&Response::RFOutputPowerBarOn>("whether the output power window is barred to commands"),
        field<&Response::MinRFOutputPower>("lower end of the output power window", {.unit = "0.1 dBm"}),
        field<&Response::MaxRFOutputPower>("upper end of the output power window", {.unit = "0.1 dBm"}),
        field<&Response::IgnorePowerLimits>("whether the window may leave the limits of the radio"),
        field<&Response::ForceLoopMode>("loop in which power control is held"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "TiManageRfPowerImpl has not been initialized", "The node has not come up."},
        FaultNote{eTI_E_FAILED, "ICcdpController::setBar failed for radiochannel <id> with status <n>",
                  "Power control refused the settings."},
    };
};

} // namespace zyr_registration
