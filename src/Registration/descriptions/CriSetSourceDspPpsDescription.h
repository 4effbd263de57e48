#pragma once

#include "CriSetSourceDspPpsImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetSourceDspPpsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetSourceDspPps::Command;

    static constexpr std::string_view help =
        "Sets where a radio channel's pulse per second comes from, and its offset.";
    static constexpr Group group = Group::Timing;
    static constexpr Effect effect = Effect::Changes;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
        field<&Command::ppsSource>("where the pulse comes from"),
        field<&Command::ppsOffsetNanoSec>("offset of the pulse", {.unit = "ns"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.SetSourceDspPps failed to configure",
                  "The DSP refused the source or the offset."},
    };
};

} // namespace zyr_registration
