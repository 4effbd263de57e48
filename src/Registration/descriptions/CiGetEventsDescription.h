#pragma once

#include "AlarmEventFields.h"
#include "CiGetEventsImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CiGetEventsImpl> : DescriptionDefaults
{
    using Response = zyr_top_api::CiGetEvents::Response;

    static constexpr std::string_view help = "Reads the alarm events of the node.";
    static constexpr Group group = Group::Events;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array response{
        field<&Response::events>("all alarm events that the node knows"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "CI.GetEvents failed to get alarms", "The alarm handler failed."},
    };
};

} // namespace zyr_registration
