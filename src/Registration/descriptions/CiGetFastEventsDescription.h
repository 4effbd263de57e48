#pragma once

#include "AlarmEventFields.h"
#include "CiGetFastEventsImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CiGetFastEventsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CiGetFastEvents::Command;
    using Response = zyr_top_api::CiGetFastEvents::Response;

    static constexpr std::string_view help =
        "Waits until the alarm events of the node differ from the caller's view of them.";
    static constexpr Group group = Group::Events;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::events>("the alarm events as the caller knows them"),
    };
    static constexpr std::array response{
        field<&Response::events>("the alarm events as they are now"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "CI.GetFastEvents has been terminated",
                  "The request was released by CI.ReleaseFastEventsRequests."},
        FaultNote{eTI_E_FAILED, "CI.GetFastEvents failed to get alarms", "The alarm handler failed."},
    };
};

} // namespace zyr_registration
