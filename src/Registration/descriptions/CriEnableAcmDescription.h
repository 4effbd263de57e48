#pragma once

#include "CriEnableAcmImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriEnableAcmImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriEnableAcm::Command;

    static constexpr std::string_view help =
        "Switches adaptive coding and modulation (ACM) of a radio channel on or off.";
    static constexpr bool disturbsTraffic = true;
    static constexpr std::array request{
        field<&Command::channelId>("channelId", {.help = "radio channel"}),
        field<&Command::enable>("enable", {.help = "true switches ACM on, false off"}),
    };
    static constexpr std::array faults{
        FaultNote{zyr_top_api::eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds",
                  "The node has no such radio channel."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "CRI.EnableAcm failed to enable ACM",
                  "The ACM handler refused to switch ACM on."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "CRI.EnableAcm failed to disable ACM",
                  "The ACM handler refused to switch ACM off."},
    };
};

} // namespace zyr_registration
