#pragma once

#include "CriSetRadioChannelNearEndImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct RecordFields<zyr_top_api::CriSetRadioChannelNearEnd::RauMultiTrxConfig>
{
    using Record = zyr_top_api::CriSetRadioChannelNearEnd::RauMultiTrxConfig;
    static constexpr std::array fields{
        field<&Record::ifSwitchMode>("ifSwitchMode", {.help = "IF switch mode; left out: nothing is set"}),
    };
};

template <>
struct Description<zyr_top_api::CriSetRadioChannelNearEndImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetRadioChannelNearEnd::Command;

    static constexpr std::string_view help =
        "Brings a radio channel of this node to a complete new configuration.";
    static constexpr bool disturbsTraffic = true;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("RadioChannelID", {.help = "radio channel"}),
        field<&Command::radioFrameId>("radioFrameId",
                                      {.help = "radio frame to select; 0 together with a zero "
                                               "txFrequency_kHz puts the channel into reset"}),
        field<&Command::minModulation>("minModulation", {.help = "lowest modulation and coding allowed"}),
        field<&Command::maxModulation>("maxModulation", {.help = "highest modulation and coding allowed"}),
        field<&Command::referenceSec>("referenceSec", {.help = "reference spectrum efficiency class"}),
        field<&Command::txFrequency_kHz>("txFrequency_kHz", {.unit = "kHz", .help = "transmit frequency"}),
        field<&Command::rxFrequency_kHz>(
            "rxFrequency_kHz",
            {.unit = "kHz", .help = "receive frequency; ignored for a radio with a fixed duplex distance"}),
        field<&Command::xpicParameterPresent>(
            "xpicParameterPresent",
            {.help = "whether xpicEnable holds a value", .presence = Presence::Defaulted}),
        field<&Command::xpicEnable>(
            "xpicEnable",
            {.help = "XPIC link type: 'Disable', 'Enable_A' to 'Enable_D'", .presence = Presence::Defaulted}),
        field<&Command::mimoParameterPresent>(
            "mimoParameterPresent",
            {.help = "whether mimoEnable holds a value", .presence = Presence::Defaulted}),
        field<&Command::mimoEnable>(
            "mimoEnable", {.help = "MIMO link type, as xpicEnable; only one of the two may be enabled",
                           .presence = Presence::Defaulted}),
        field<&Command::splitMode>("splitMode", {.help = "logged only", .presence = Presence::Defaulted}),
        field<&Command::iduMacAddress>("iduMacAddress", {.help = "address of the indoor unit, logged only",
                                                         .presence = Presence::Defaulted}),
        field<&Command::oduMacAddress>("oduMacAddress", {.help = "address of the outdoor unit, logged only",
                                                         .presence = Presence::Defaulted}),
        field<&Command::ffConfigTypePresent>(
            "ffConfigTypePresent",
            {.help = "whether FFConfigType holds a value", .presence = Presence::Defaulted}),
        field<&Command::FFConfigType>(
            "FFConfigType", {.help = "frame format configuration type by its long name, such as 'Standard'",
                             .presence = Presence::Defaulted}),
        field<&Command::ppsSlave>("ppsSlave", {.help = "role for the timing pulses: true slave, false master",
                                               .presence = Presence::Defaulted}),
        field<&Command::ppsOutputMode>(
            "ppsOutputMode", {.help = "whether timing pulses are put out", .presence = Presence::Defaulted}),
        field<&Command::rauMultiTrxConfig>(
            "rauMultiTrxConfig",
            {.help = "settings of a radio unit with two transmitters", .presence = Presence::Defaulted}),
    };
    static constexpr std::array faults{
        FaultNote{zyr_top_api::eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds",
                  "The node has no such radio channel."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "Enabling XPIC and MIMO at the same time is not allowed!",
                  "Both xpicEnable and mimoEnable ask for a link."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "TX OFF didn't happen during timeout:<ms> ms",
                  "The transmitter did not go off in time."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "CRI.SetRadioChannelNearEnd invalid FF config type: <text>",
                  "FFConfigType is none of the long names."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "CRI.SetRadioChannelNearEnd failed to reconfigure the DSP",
                  "The DSP refused its new type."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.SetRadioChannelNearEnd failed to check which kind of DSP Recovery is needed",
                  "The DSP did not tell which restart it needs."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "At least one of the phases failed (<n>)",
                  "A module refused the closing phases of the configuration."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "<collaborator>-><operation> failed (<type> = <n>)",
                  "A collaborator refused a step; its result is in the text."},
    };
};

} // namespace zyr_registration
