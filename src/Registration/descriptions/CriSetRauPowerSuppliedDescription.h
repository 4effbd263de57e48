#pragma once

#include "CriSetRauPowerSuppliedImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetRauPowerSuppliedImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetRauPowerSupplied::Command;

    static constexpr std::string_view help =
        "Gives the radio unit of a radio channel power, or takes it away.";
    static constexpr Group group = Group::RadioUnit;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::RauPowerSupplied>("0 takes the power away, any other number gives it",
                                          {.unit = kNoUnit, .example = "1"}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds",
                  "The node has no such radio channel."},
    };
};

} // namespace zyr_registration
