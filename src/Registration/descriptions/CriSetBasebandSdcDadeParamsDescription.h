#pragma once

#include "CriSetBasebandSdcDadeParamsImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetBasebandSdcDadeParamsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetBasebandSdcDadeParams::Command;

    static constexpr std::string_view help =
        "Sets the DADE calibration data of the baseband combiner of a radio channel.";
    static constexpr Group group = Group::Diversity;
    static constexpr Effect effect = Effect::Changes;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::mainDataCalibration>("calibration data of the main path", {.unit = kNoUnit}),
        field<&Command::diversityDataCalibration>("calibration data of the diversity path",
                                                  {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "BasebandSdc Controller missing",
                  "The node has no baseband combiner for this channel."},
        FaultNote{eTI_E_FAILED, "Failed to set Data Calibration", "The combiner refused the data."},
    };
};

} // namespace zyr_registration
