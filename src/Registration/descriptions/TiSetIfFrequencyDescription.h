#pragma once

#include "Description.h"
#include "TiSetIfFrequencyImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiSetIfFrequencyImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiSetIfFrequency::Command;

    static constexpr std::string_view help =
        "Sets the transmit or receive intermediate frequency of a radio channel.";
    static constexpr Group group = Group::TestRf;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
        field<&Command::direction>("direction of the signal", {.texts = oneOf<"transmit", "receive">}),
        field<&Command::frequency>("intermediate frequency in the unit of the DSP", {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_INVALID_ARGUMENT, "Direction TX/RX not valid", "direction is neither 0 nor 1."},
        FaultNote{eTI_E_FAILED, "Failed to set IF Frequency to DSP", "The DSP refused the frequency."},
    };
};

} // namespace zyr_registration
