#pragma once

#include "CriSetBasebandSdcDadeCalibrationImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetBasebandSdcDadeCalibrationImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetBasebandSdcDadeCalibration::Command;

    static constexpr std::string_view help =
        "Starts or aborts the DADE calibration of the baseband combiner of a radio channel.";
    static constexpr Group group = Group::Diversity;
    static constexpr Effect effect = Effect::Changes;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::dadeCalibration>("true starts a calibration, false aborts it", {.example = "false"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "BasebandSdc Controller missing",
                  "The node has no baseband combiner for this channel."},
        FaultNote{eTI_E_FAILED, "Failed to start or abort SDC Dade Calibration",
                  "The combiner refused; it must be started for a calibration."},
    };
};

} // namespace zyr_registration
