#pragma once

#include "CriSetBoosterPresenceImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetBoosterPresenceImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetBoosterPresence::Command;

    static constexpr std::string_view help =
        "Tells a radio channel of the booster behind its radio, or that there is none.";
    static constexpr Group group = Group::Power;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::boosterPresence>("1 if a booster is fitted, 0 if none is",
                                         {.unit = kNoUnit, .example = "0"}),
        field<&Command::boosterGain>("gain of the booster", {.unit = "0.1 dB", .example = "60"}),
        field<&Command::boosterMaxInputPower>("highest power that the booster takes in",
                                              {.unit = "0.1 dBm", .example = "200"}),
        field<&Command::boosterMaxMod>("highest modulation for the booster", {.example = "\"256QAM\""}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "Ouput Power Controller missing", // sic
                  "The radio channel has no output power calculator."},
        FaultNote{eTI_E_FAILED, "Failed to set booster", "The output power calculator refused the booster."},
    };
};

} // namespace zyr_registration
