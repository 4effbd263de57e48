#pragma once

#include "CriSetOutputModeDspPpsImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetOutputModeDspPpsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetOutputModeDspPps::Command;

    static constexpr std::string_view help = "Sets whether a radio channel's pulse per second is put out.";
    static constexpr Group group = Group::Timing;
    static constexpr Effect effect = Effect::Changes;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
        field<&Command::ppsOutputMode>("how the output behaves"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.SetOutputModeDspPps failed to set outputMode",
                  "The DSP refused the mode."},
    };
};

} // namespace zyr_registration
