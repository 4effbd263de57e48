#pragma once

#include "CriSetSdcPathControlImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetSdcPathControlImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetSdcPathControl::Command;

    static constexpr std::string_view help =
        "Chooses the path of the space diversity combiner (SDC) of a radio channel.";
    static constexpr Group group = Group::Diversity;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr ExampleNeeds needs{.options = "--radio-type 3"};
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::sdcPath>("path; any other text counts as invalid",
                                 {.texts = namesOf<zyr_top_api::SdcPath>, .example = "auto"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "Space Diversity Combiner Controller missing",
                  "The node has no space diversity combiner for this channel."},
        FaultNote{eTI_E_FAILED, "Failed to set SDC Path", "The combiner refused the path."},
    };
};

} // namespace zyr_registration
