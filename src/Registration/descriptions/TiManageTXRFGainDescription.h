#pragma once

#include "Description.h"
#include "TiManageTXRFGainImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManageTXRFGainImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageTXRFGain::Command;
    using Response = zyr_top_api::TiManageTXRFGain::Response;

    static constexpr std::string_view help =
        "Reads and sets the gain at radio frequency of the transmitter of radio channel 1.";
    static constexpr Group group = Group::TestRf;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::radioChannelId>("radio channel, 1 if given", {.unit = kNoUnit}),
        field<&Command::barOn>("whether the gain is barred to power control"),
        field<&Command::txRfGain>("gain", {.unit = "0.1 dB", .example = "100"}),
    };
    static constexpr std::array response{
        field<&Response::radioChannelId>("always 1", {.unit = kNoUnit}),
        field<&Response::barOn>("whether the gain is barred to power control"),
        field<&Response::txRfGain>("requested gain if there was one, else the present one",
                                   {.unit = "0.1 dB"}),
        field<&Response::reducedGainAmplifier1>("reduced gain of amplifier 1", {.unit = "0.1 dB"}),
        field<&Response::reducedGainAmplifier2>("reduced gain of amplifier 2", {.unit = "0.1 dB"}),
        field<&Response::reducedGainAmplifier3>("reduced gain of amplifier 3", {.unit = "0.1 dB"}),
        field<&Response::reducedGainAmplifier4>("reduced gain of amplifier 4", {.unit = "0.1 dB"}),
        field<&Response::reducedGainAmplifier5>("reduced gain of amplifier 5", {.unit = "0.1 dB"}),
        field<&Response::reducedGainAmplifier6>("reduced gain of amplifier 6", {.unit = "0.1 dB"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_INVALID_ARGUMENT, "TI.ManageTXRFGain, unable to set requested gain.",
                  "The gain was refused; the bar stays as set."},
    };
};

} // namespace zyr_registration
