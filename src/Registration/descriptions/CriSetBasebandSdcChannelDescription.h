#pragma once

#include "CriSetBasebandSdcChannelImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetBasebandSdcChannelImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetBasebandSdcChannel::Command;

    static constexpr std::string_view help =
        "Switches the paths of the baseband combiner of a radio channel on or off.";
    static constexpr Group group = Group::Diversity;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::isMainChannelEnabled>("true switches the main path on, false off"),
        field<&Command::isDiversityChannelEnabled>("true switches the diversity path on, false off"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "BadebandSdc Controller missing",
                  "The node has no baseband combiner for this channel."},
        FaultNote{eTI_E_FAILED, "Failed to set SDC Path", "The combiner refused the paths."},
    };
};

} // namespace zyr_registration
