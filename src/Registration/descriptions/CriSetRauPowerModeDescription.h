#pragma once

#include "CriSetRauPowerModeImpl.h"
#include "Description.h"
#include "RauPowerModeFields.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetRauPowerModeImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetRauPowerMode::Command;

    static constexpr std::string_view help = "Sets the power mode of the transceivers of a radio unit.";
    static constexpr Group group = Group::RadioUnit;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::rauPowerMode>(
            "power mode; one that does not fit its transceiver reaches the radio unit too"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "command.channelId > m_numberOfChannels",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "SetRauPowerMode failed: ERAUHResult = <name>",
                  "The radio unit refused the power mode."},
    };
};

} // namespace zyr_registration
