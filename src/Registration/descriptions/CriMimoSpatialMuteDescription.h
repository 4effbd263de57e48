#pragma once

#include "CriMimoSpatialMuteImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriMimoSpatialMuteImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriMimoSpatialMute::Command;

    static constexpr std::string_view help =
        "Mutes or unmutes the MIMO diversity path of a radio channel, and with it its share of the capacity.";
    static constexpr Group group = Group::XpicMimo;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
        field<&Command::mute>("true mutes, false unmutes"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.CriMimoSpatialMute failed to mimo diversity",
                  "The MIMO controller refused, be it to mute or to unmute."},
    };
};

} // namespace zyr_registration
