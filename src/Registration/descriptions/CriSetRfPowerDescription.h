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
    static constexpr Group group = Group::Power;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::txRequestedStatus>("state that the transmitter shall have"),
        field<&Command::targetRfInputPower>("logged only", {.unit = "0.1 dBm", .hasDefault = true}),
        field<&Command::targetRfInputPowerFarEnd>("level that the far end shall receive",
                                                  {.unit = "0.1 dBm", .example = "-400"}),
        field<&Command::minRfOutputPower>("lower end of the output window",
                                          {.unit = "0.1 dBm", .example = "0"}),
        field<&Command::maxRfOutputPower>("upper end of the output window",
                                          {.unit = "0.1 dBm", .example = "150"}),
        field<&Command::availableMaxPowerCutback>("allowed cutback of the maximum power, none if left out",
                                                  {.unit = "0.1 dB", .hasDefault = true}),
        field<&Command::tapsEnable>("switches TAPS"),
        field<&Command::hrlbEnabled>("switches HRLB"),
        field<&Command::atpcFallbackEnable>(
            "switches the ATPC fallback; counts only together with the two below"),
        field<&Command::atpcFallbackOutputPower>("output power of the fallback", {.unit = "0.1 dBm"}),
        field<&Command::atpcFallbackTimer>("time until the fallback", {.unit = "s"}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_OPERATION_NOT_ALLOWED, "DSP needs to be configured before SetRfPower",
                  "The channel is not configured; only Off is taken then."},
        FaultNote{eTI_E_FAILED, "command.channelId > m_numberOfChannels",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "SetPowerCutBack failed(ESPCResult = <n>)",
                  "Power control refused the cutback."},
        FaultNote{eTI_E_FAILED, "IAcmHandler->muteAcm() failed (EACMHResult = <n>)",
                  "ACM could not be held during the change."},
        FaultNote{eTI_E_FAILED, "notifyRequestedPowerSettings failed(ESPCResult = <n>)",
                  "Power control refused the fallback."},
        FaultNote{eTI_E_FAILED, "configurePowerSettings failed(ESPCResult = <n>)",
                  "Power control refused the window."},
        FaultNote{eTI_E_FAILED, "setAdminRequestedTxPowerState failed(ESPCResult = <n>)",
                  "Power control refused the state."},
        FaultNote{eTI_E_FAILED, "IAcmHandler->restoreAcm() failed (EACMHResult = <n>)",
                  "ACM could not be let go after the change."},
        FaultNote{eTI_E_FAILED, "Failed to set TAPS enable for channel <id> (ESPCResult = <n>)",
                  "TAPS could not be switched."},
    };
};

} // namespace zyr_registration
