#pragma once

#include "AlarmEvent.h"
#include "Field.h"

namespace zyr_registration
{

template <>
struct RecordFields<zyr_top_api::AlarmEvent>
{
    using Record = zyr_top_api::AlarmEvent;
    static constexpr std::array fields{
        field<&Record::eventName>("name of the alarm"),
        field<&Record::isActive>("whether the alarm is raised now"),
        field<&Record::numberOfTimesEventHasBeenActive>("how many times the alarm has been raised",
                                                        {.unit = kNoUnit}),
        // Not limited to the node's channels: the view that a long poll sends back must not be refused.
        field<&Record::radioChannelId>("radio channel that the alarm concerns",
                                       {.range = Range{0, 4294967295}}),
    };
};

} // namespace zyr_registration
