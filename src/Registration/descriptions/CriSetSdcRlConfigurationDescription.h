#pragma once

#include "CriSetSdcRlConfigurationImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetSdcRlConfigurationImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetSdcRlConfiguration::Command;

    static constexpr std::string_view help =
        "Tells the space diversity combiner (SDC) of a radio channel how its radio link is configured.";
    static constexpr Group group = Group::Diversity;
    static constexpr Effect effect = Effect::Changes;
    static constexpr ExampleNeeds needs{.options = "--radio-type 3"};
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::selectedMaxAcm>(
            "greatest constellation as its number; may stand between dashes or behind one, as in a-256-b",
            {.example = "256"}),
        field<&Command::channelSpacing>(
            "channel spacing in kHz; any other number counts as unknown",
            {.texts =
                 oneOf<"3500", "5000", "6000", "7000", "10000", "14000", "20000", "28000", "30000", "40000",
                       "50000", "56000", "60000", "62000", "62500", "80000", "100000", "112000", "125000",
                       "150000", "200000", "250000", "300000", "350000", "400000", "450000", "500000",
                       "600000", "750000", "1000000", "1250000", "1500000", "1750000", "2000000">,
             .example = "28000",
             .isWholeNumber = true}),
        field<&Command::xpicEnabled>("whether XPIC is on", {.example = "false"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "Space Diversity Combiner Controller missing",
                  "The node has no space diversity combiner for this channel."},
        FaultNote{eTI_E_FAILED, "Failed to set RL configuration attributes",
                  "The combiner refused the configuration."},
    };
};

} // namespace zyr_registration
