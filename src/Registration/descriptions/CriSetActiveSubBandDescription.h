#pragma once

#include "CriSetActiveSubBandImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetActiveSubBandImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetActiveSubBand::Command;

    static constexpr std::string_view help = "Tells a radio unit which of its frequency sub-bands is active.";
    static constexpr Group group = Group::RadioUnit;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::subBand>("sub-band; only the low byte counts", {.unit = kNoUnit, .example = "0"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "Failed to set subBand", "The radio unit refused the sub-band."},
    };
};

} // namespace zyr_registration
