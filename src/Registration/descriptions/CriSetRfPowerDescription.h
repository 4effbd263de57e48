#pragma once

#include "CriSetRfPowerImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetRfPowerImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetRfPower::Command;

    static constexpr std::string_view help =
        "Sets the transmit power window of a radio channel, its transmitter state and its power options.";
    static constexpr bool disturbsTraffic = true;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("RadioChannelID", {.help = "radio channel"}),
        field<&Command::txRequestedStatus>("txRequestedStatus",
                                           {.help = "state that the transmitter shall have"}),
        field<&Command::targetRfInputPower>("targetRfInputPower",
                                            {.help = "logged only", .presence = Presence::Defaulted}),
        field<&Command::targetRfInputPowerFarEnd>("targetRfInputPowerFarEnd",
                                                  {.help = "level that the far end shall receive"}),
        field<&Command::minRfOutputPower>("minRfOutputPower", {.help = "lower end of the output window"}),
        field<&Command::maxRfOutputPower>("maxRfOutputPower", {.help = "upper end of the output window"}),
        field<&Command::availableMaxPowerCutback>(
            "availableMaxPowerCutback", {.help = "allowed cutback of the maximum power, none if left out",
                                         .presence = Presence::Defaulted}),
        field<&Command::tapsEnable>("tapsEnable", {.help = "switches TAPS"}),
        field<&Command::hrlbEnabled>("hrlbEnabled", {.help = "switches HRLB"}),
        field<&Command::atpcFallbackEnable>(
            "atpcFallbackEnable",
            {.help = "switches the ATPC fallback; counts only together with the two below"}),
        field<&Command::atpcFallbackOutputPower>("atpcFallbackOutputPower",
                                                 {.help = "output power of the fallback"}),
        field<&Command::atpcFallbackTimer>("atpcFallbackTimer", {.help = "time until the fallback"}),
    };
    static constexpr std::array faults{
        FaultNote{zyr_top_api::eTI_E_OPERATION_NOT_ALLOWED, "DSP needs to be configured before SetRfPower",
                  "The channel is not configured; only Off is taken then."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "command.channelId > m_numberOfChannels",
                  "The node has no such radio channel."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "SetPowerCutBack failed(ESPCResult = <n>)",
                  "Power control refused the cutback."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "IAcmHandler->muteAcm() failed (EACMHResult = <n>)",
                  "ACM could not be held during the change."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "notifyRequestedPowerSettings failed(ESPCResult = <n>)",
                  "Power control refused the fallback."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "configurePowerSettings failed(ESPCResult = <n>)",
                  "Power control refused the window."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "setAdminRequestedTxPowerState failed(ESPCResult = <n>)",
                  "Power control refused the state."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "IAcmHandler->restoreAcm() failed (EACMHResult = <n>)",
                  "ACM could not be let go after the change."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "Failed to set TAPS enable for channel <id> (ESPCResult = <n>)",
                  "TAPS could not be switched."},
    };
};

} // namespace zyr_registration
