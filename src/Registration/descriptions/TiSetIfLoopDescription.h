#pragma once

#include "Description.h"
#include "TiSetIfLoopImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiSetIfLoopImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiSetIfLoop::Command;

    static constexpr std::string_view help =
        "Closes or opens the loop at intermediate frequency of a radio channel.";
    static constexpr Group group = Group::TestRf;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
        field<&Command::ifLoop>("0 opens the loop, any other value closes it",
                                {.unit = kNoUnit, .example = "0"}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "TiSetIfLoopImpl has not been initialized", "The node has not come up."},
        FaultNote{eTI_E_FAILED, "failed to set IF loop", "The driver of the loop failed."},
    };
};

} // namespace zyr_registration
