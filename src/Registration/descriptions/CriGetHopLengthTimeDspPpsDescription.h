#pragma once

#include "CriGetHopLengthTimeDspPpsImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriGetHopLengthTimeDspPpsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetHopLengthTimeDspPps::Command;
    using Response = zyr_top_api::CriGetHopLengthTimeDspPps::Response;

    static constexpr std::string_view help =
        "Gives the hop length time that a radio channel's pulse per second has measured.";
    static constexpr Group group = Group::Timing;
    static constexpr Effect effect = Effect::Reads;
    static constexpr ExampleNeeds needs{.before = "CRI.SetRadioChannelNearEnd"};
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
    };
    static constexpr std::array response{
        field<&Response::ppsHopLengthTime>("travelling time of the hop", {.unit = "ns"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.GetHopLengthTimeDspPps failed to get hop length time.",
                  "The DSP has no measurement, as while the link is down."},
    };
};

} // namespace zyr_registration
