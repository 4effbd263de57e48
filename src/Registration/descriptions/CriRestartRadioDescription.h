#pragma once

#include "CriRestartRadioImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct EnumVocabulary<zyr_top_api::CriRestartRadio::Action>
    : ConsecutiveTexts<&zyr_top_api::CriRestartRadio::actionToString,
                       zyr_top_api::CriRestartRadio::Action::TriggerRestart,
                       zyr_top_api::CriRestartRadio::Action::EndRestart>
{};

template <>
struct Description<zyr_top_api::CriRestartRadioImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriRestartRadio::Command;
    using Response = zyr_top_api::CriRestartRadio::Response;

    static constexpr std::string_view help =
        "Restarts the radio unit of a radio channel: trigger the restart, poll its status, end it.";
    static constexpr Group group = Group::Lifecycle;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::Action>("step of the restart", {.example = "\"GetStatus\""}),
    };
    static constexpr std::array response{
        field<&Response::Status>("how the restart stands"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "command.channelId > m_numberOfChannels",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "channel <id>: Radio is DOWN",
                  "The radio unit does not answer, so it cannot be told to restart."},
        FaultNote{eTI_E_FAILED, "channel <id>: Unknown action", "Action is none of the three steps."},
    };
};

} // namespace zyr_registration
