#pragma once

#include "Description.h"
#include "TiManageRealTimeClockImpl.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManageRealTimeClockImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageRealTimeClock::Command;
    using Response = zyr_top_api::TiManageRealTimeClock::Response;

    static constexpr std::string_view help = "Reads or sets the node's time, in UTC.";
    static constexpr Group group = Group::Timing;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::dateTime>("time to set, yyyymmddThh:mm:ss in UTC; empty to read only",
                                  {.example = "20260114T08:30:05", .hasDefault = true, .changes = true}),
    };
    static constexpr std::array response{
        field<&Response::dateTime>("time read, in the same form"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "Cannot use \"<text>\". Expected format is %Y%m%dT%H:%M:%S",
                  "The time has another form or a field out of its range."},
        FaultNote{eTI_E_FAILED, "Failed to set the real time clock.",
                  "The hardware clock refused; neither clock is changed."},
        FaultNote{eTI_E_FAILED, "Could not set the system clock.",
                  "The system clock refused; the hardware clock is changed."},
        FaultNote{eTI_E_FAILED, "failed to read the real time clock",
                  "The hardware clock could not be read; a set before it is done."},
        FaultNote{eTI_E_FAILED, "failed to read the system time", "The system clock could not be read."},
    };
};

} // namespace zyr_registration
