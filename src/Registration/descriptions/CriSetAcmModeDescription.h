#pragma once

#include "CriSetAcmModeImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetAcmModeImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetAcmMode::Command;

    static constexpr std::string_view help =
        "Sets how a radio channel adapts its modulation and where that is decided.";
    static constexpr Group group = Group::Acm;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::acmMode>(
            "Active follows the hop, Passive holds the modulation in force, Basic holds the lowest"),
        field<&Command::acmModePosition>("where the modulation is decided"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.SetAcmMode failed to set ACM mode", "The DSP refused the mode."},
    };
};

} // namespace zyr_registration
