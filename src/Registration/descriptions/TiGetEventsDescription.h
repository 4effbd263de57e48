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
    static constexpr std::array request{
        field<&Command::requestOption>("requestOption",
                                       {.help = "what to report; its meaning is the alarm handler's"}),
    };
    static constexpr std::array response{
        field<&Response::events>("events", {.help = "the selected alarm events"}),
        field<&Response::requestOption>("requestOption", {.help = "the request's"}),
    };
    static constexpr std::array faults{
        FaultNote{zyr_top_api::eTI_E_FAILED, "TI.GetEvents failed to get alarms",
                  "The alarm handler failed."},
    };
};

} // namespace zyr_registration
