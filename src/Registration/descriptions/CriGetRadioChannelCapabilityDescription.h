#pragma once

#include "CriGetRadioChannelCapabilityImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriGetRadioChannelCapabilityImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetRadioChannelCapability::Command;
    using Response = zyr_top_api::CriGetRadioChannelCapability::Response;

    static constexpr std::string_view help = "Tells what a radio channel can do.";
    static constexpr Group group = Group::Status;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::radioFrameId>("radio frame for which the power is asked",
                                      {.unit = kNoUnit, .example = "101"}),
        field<&Command::minModulation>("lowest modulation of the power table", {.example = "\"4QAM\""}),
        field<&Command::maxModulation>("highest modulation of the power table", {.example = "\"256QAM\""}),
        field<&Command::referenceSec>("reference spectrum efficiency class"),
        field<&Command::availableMaxPowerCutback>(
            "cutback of the maximum power; counts only if isMaxPowerCutbackValid",
            {.unit = "0.1 dB", .hasDefault = true}),
        field<&Command::isMaxPowerCutbackValid>("whether the cutback applies to this read",
                                                {.hasDefault = true}),
    };
    static constexpr std::array response{
        field<&Response::NumberOfChannels>("radio channels of the node", {.unit = kNoUnit}),
        field<&Response::MinTemp>("lowest operating temperature", {.unit = "degC"}),
        field<&Response::MaxTemp>("highest operating temperature", {.unit = "degC"}),
        field<&Response::AvailableMinRFOutputPower>("lowest output power", {.unit = "0.1 dBm"}),
        field<&Response::AvailableMaxRFOutputPower>("highest output power for each modulation",
                                                    {.unit = "0.1 dBm"}),
        field<&Response::MinTXFrequency>("lowest transmit frequency", {.unit = "kHz"}),
        field<&Response::MaxTXFrequency>("highest transmit frequency", {.unit = "kHz"}),
        field<&Response::MinRXFrequency>("lowest receive frequency", {.unit = "kHz"}),
        field<&Response::MaxRXFrequency>("highest receive frequency", {.unit = "kHz"}),
        field<&Response::FrequencyStepSize>("step of the frequencies", {.unit = "kHz"}),
        field<&Response::MinTXFrequencyStep>("lowest transmit step", {.unit = kNoUnit}),
        field<&Response::MaxTXFrequencyStep>("highest transmit step", {.unit = kNoUnit}),
        field<&Response::MinRXFrequencyStep>("lowest receive step", {.unit = kNoUnit}),
        field<&Response::MaxRXFrequencyStep>("highest receive step", {.unit = kNoUnit}),
        field<&Response::TXBaseFrequency>("frequency from which transmit steps count", {.unit = "kHz"}),
        field<&Response::RXBaseFrequency>("frequency from which receive steps count", {.unit = "kHz"}),
        field<&Response::FrequencyBand>("frequency band", {.unit = kNoUnit}),
        field<&Response::FrequencySubBand>("sub-band", {.unit = kNoUnit}),
        field<&Response::DuplexType>("distance between the two directions",
                                     {.texts = oneOf<"Variable", "Fixed", "UNDEFINED">}),
        field<&Response::AvailableRSECs>("reference spectrum efficiency classes"),
        field<&Response::TapsCapable>("whether TAPS is possible"),
        field<&Response::RfLoopAvailable>("whether the RF loop is possible"),
        field<&Response::CarrierAggregationCapable>("whether carrier aggregation is possible"),
        field<&Response::SpaceDiversityCombinerCapable>("whether the radio has a space diversity combiner"),
        field<&Response::LongHaulBoosterCapable>("whether a booster is possible"),
        field<&Response::PathLatencyCapable>("whether path latency can be managed"),
        field<&Response::Is2T2R>("whether the radio unit has two transmitters and two receivers"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.GetRadioChannelCapability, radio capabilities not available",
                  "The radio does not tell its capabilities."},
        FaultNote{eTI_E_FAILED,
                  "CRI.GetRadioChannelCapability failed to set temporary max power cutback. SPC Result : <n>",
                  "The power calculator refused the cutback."},
        FaultNote{eTI_E_FAILED,
                  "CRI.GetRadioChannelCapability failed to get max output power for each modulation. SPC "
                  "Result : <n>",
                  "The power calculator failed."},
        FaultNote{
            eTI_E_FAILED,
            "CRI.GetRadioChannelCapability failed to unset temporary max power cutback. SPC Result : <n>",
            "The power calculator kept the cutback."},
    };
};

} // namespace zyr_registration
