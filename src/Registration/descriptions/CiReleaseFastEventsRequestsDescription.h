#pragma once

#include "CiReleaseFastEventsRequestsImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CiReleaseFastEventsRequestsImpl> : DescriptionDefaults
{
    static constexpr std::string_view help = "Releases all hanging CI.GetFastEvents requests.";
    static constexpr Group group = Group::Events;
    static constexpr Effect effect = Effect::Changes;
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED,
                  "CI.ReleaseFastEventsRequestsImpl failed to release hanging GetFastAlarm requests",
                  "The alarm handler failed."},
    };
};

} // namespace zyr_registration
