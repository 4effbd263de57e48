#pragma once

#include "CriSetRauCarrierAggregationImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetRauCarrierAggregationImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetRauCarrierAggregation::Command;

    static constexpr std::string_view help =
        "Switches carrier aggregation of the radio unit on or off, for the whole node.";
    static constexpr Group group = Group::RadioUnit;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::IsRauCarrierAggregation>("true switches it on, false off"),
    };
};

} // namespace zyr_registration
