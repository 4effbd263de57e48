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
        field<&Record::eventName>("eventName", {.help = "name of the alarm"}),
        field<&Record::isActive>("isActive", {.help = "whether the alarm is raised now"}),
        field<&Record::numberOfTimesEventHasBeenActive>("numberOfTimesEventHasBeenActive",
                                                        {.help = "how many times the alarm has been raised"}),
        // Not limited to the node's channels: the view that a long poll sends back must not be refused.
        field<&Record::radioChannelId>("radioChannelId", {.help = "radio channel that the alarm concerns",
                                                          .range = Range{0, 4294967295}}),
    };
};

} // namespace zyr_registration
