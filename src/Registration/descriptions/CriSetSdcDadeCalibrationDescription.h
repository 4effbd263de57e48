#pragma once

#include "CriSetSdcDadeCalibrationImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetSdcDadeCalibrationImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetSdcDadeCalibration::Command;

    static constexpr std::string_view help =
        "Starts or aborts the DADE calibration of the space diversity combiner (SDC) of a radio channel.";
    static constexpr Group group = Group::Diversity;
    static constexpr Effect effect = Effect::Changes;
    static constexpr ExampleNeeds needs{.options = "--radio-type 3"};
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::dadeCalibration>("true starts a calibration, false aborts it"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "Space Diversity Combiner Controller missing",
                  "The node has no space diversity combiner for this channel."},
        FaultNote{eTI_E_FAILED, "Failed to start or abort SDC Dade Calibration", "The combiner refused."},
    };
};

} // namespace zyr_registration
