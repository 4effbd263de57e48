#pragma once

#include "CriSetSdcEnableImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetSdcEnableImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetSdcEnable::Command;

    static constexpr std::string_view help =
        "Switches the space diversity combiner (SDC) of a radio channel on or off.";
    static constexpr Group group = Group::Diversity;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr ExampleNeeds needs{.options = "--radio-type 3"};
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::sdcEnable>("true switches the combiner on, false off"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "Space Diversity Combiner Controller missing",
                  "The node has no space diversity combiner for this channel."},
        FaultNote{eTI_E_FAILED, "Failed to enable or disable Space Diversity Combiner",
                  "The combiner refused."},
    };
};

} // namespace zyr_registration
