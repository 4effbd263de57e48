#pragma once

#include "CriSetBasebandSdcDadeResetCalibrationImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetBasebandSdcDadeResetCalibrationImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetBasebandSdcDadeResetCalibration::Command;

    static constexpr std::string_view help =
        "Forgets the DADE calibration of the baseband combiner of a radio channel; succeeds without doing so "
        "while a calibration runs.";
    static constexpr Group group = Group::Diversity;
    static constexpr Effect effect = Effect::Changes;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "BasebandSdc Controller missing",
                  "The node has no baseband combiner for this channel."},
        FaultNote{eTI_E_FAILED, "Failed to reset Dade Calibration", "The combiner refused."},
    };
};

} // namespace zyr_registration
