#pragma once

#include "Description.h"
#include "TiGetRxXcStatusLevelImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiGetRxXcStatusLevelImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiGetRxXcStatusLevel::Command;
    using Response = zyr_top_api::TiGetRxXcStatusLevel::Response;

    static constexpr std::string_view help =
        "Reads the status levels of the cross-connected receiver of a radio channel.";
    static constexpr Group group = Group::TestRf;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
    };
    static constexpr std::array response{
        field<&Response::rslCh0>("level of channel 0 of the cross-connection", {.unit = "0.1 dBm"}),
        field<&Response::rslCh1>("level of channel 1 of the cross-connection", {.unit = "0.1 dBm"}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "TiGetRxXcStatusLevelImpl has not been initialized",
                  "The node has not come up."},
        FaultNote{eTI_E_FAILED, "Failed to get RX XC status level", "The DSP does not give the levels."},
    };
};

} // namespace zyr_registration
