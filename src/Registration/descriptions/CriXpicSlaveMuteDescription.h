#pragma once

#include "CriXpicSlaveMuteImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriXpicSlaveMuteImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriXpicSlaveMute::Command;

    static constexpr std::string_view help = "Mutes or unmutes the XPIC slave of a radio channel.";
    static constexpr Group group = Group::XpicMimo;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
        field<&Command::mute>("true mutes, false unmutes"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.XpicSlaveMute failed to mute xpic slave",
                  "The XPIC controller refused, be it to mute or to unmute."},
    };
};

} // namespace zyr_registration
