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
    static constexpr Group group = Group::Acm;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::enable>("true switches ACM on, false off"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.EnableAcm failed to enable ACM",
                  "The ACM handler refused to switch ACM on."},
        FaultNote{eTI_E_FAILED, "CRI.EnableAcm failed to disable ACM",
                  "The ACM handler refused to switch ACM off."},
    };
};

} // namespace zyr_registration
