#pragma once

#include "Description.h"
#include "TiSetEventsImpl.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiSetEventsImpl> : DescriptionDefaults
{
    static constexpr std::string_view help = "Sets the alarm events as the alarm handler sees fit.";
    static constexpr Group group = Group::Events;
    static constexpr Effect effect = Effect::Changes;
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "TI.SetEvents failed to set alarm events", "The alarm handler failed."},
    };
};

} // namespace zyr_registration
