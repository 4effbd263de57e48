#pragma once

#include "Description.h"
#include "TiGetIfLoopImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiGetIfLoopImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiGetIfLoop::Command;
    using Response = zyr_top_api::TiGetIfLoop::Response;

    static constexpr std::string_view help = "Reads the loop at intermediate frequency of a radio channel.";
    static constexpr Group group = Group::TestRf;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
    };
    static constexpr std::array response{
        field<&Response::ifLoop>("state of the loop, 0 open", {.unit = kNoUnit}),
        field<&Response::barState>("always 0", {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "TiGetIfLoopImpl has not been initialized", "The node has not come up."},
        FaultNote{eTI_E_FAILED, "failed to get IF loop", "The driver of the loop failed."},
    };
};

} // namespace zyr_registration
