#pragma once

#include "CiManageLoopsImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct RecordFields<zyr_top_api::LoopStatePair>
{
    using Record = zyr_top_api::LoopStatePair;
    static constexpr std::array fields{
        field<&Record::loopName>("name of the loop", {.example = "IfLoop1"}),
        field<&Record::closed>("true closed, false open"),
    };
};

template <>
struct Description<zyr_top_api::CiManageLoopsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CiManageLoops::Command;
    using Response = zyr_top_api::CiManageLoops::Response;

    static constexpr std::string_view help =
        "Closes and opens test loops and tells the state of all loops of the node.";
    static constexpr Group group = Group::Loops;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::loops>("loops to set, in this order; none only reads"),
    };
    static constexpr std::array response{
        field<&Response::loops>("all loops of the node"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_PARAMETER_INVALID, "Loop <name> is not supported",
                  "The node has no such loop; the loops before it in the request are set."},
        FaultNote{eTI_E_FAILED, "Failed to set loop <name> to <closed or open>",
                  "The loop could not be set; the loops before it in the request are."},
        FaultNote{eTI_E_FAILED, "Failed to get loops from LoopController",
                  "The loops could not be read; those of the request are set."},
    };
};

} // namespace zyr_registration
