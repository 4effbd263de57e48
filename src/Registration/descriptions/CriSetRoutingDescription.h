#pragma once

#include "CriSetRoutingImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetRoutingImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetRouting::Command;

    static constexpr std::string_view help = "Routes a radio channel to a destination.";
    static constexpr Group group = Group::RadioUnit;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::DestinationID>("where the radio channel is routed to", {.unit = kNoUnit}),
        field<&Command::RouteType>("what the route leads from and to"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
    };
};

} // namespace zyr_registration
