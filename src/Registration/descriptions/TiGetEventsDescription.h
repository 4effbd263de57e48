#pragma once

#include "AlarmEventFields.h"
#include "Description.h"
#include "TiGetEventsImpl.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiGetEventsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiGetEvents::Command;
    using Response = zyr_top_api::TiGetEvents::Response;

    static constexpr std::string_view help = "Reads the alarm events that an option selects.";
    static constexpr Group group = Group::Events;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::requestOption>("what to report; its meaning is the alarm handler's",
                                       {.unit = kNoUnit}),
    };
    static constexpr std::array response{
        field<&Response::events>("the selected alarm events"),
        field<&Response::requestOption>("the request's", {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "TI.GetEvents failed to get alarms", "The alarm handler failed."},
    };
};

} // namespace zyr_registration
