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
    static constexpr std::array request{
        field<&Command::RadioChannelID>("RadioChannelID", {.help = "radio channel"}),
        field<&Command::radioFrameId>("radioFrameId", {.help = "radio frame for which the power is asked"}),
        field<&Command::minModulation>("minModulation", {.help = "lowest modulation of the power table"}),
        field<&Command::maxModulation>("maxModulation", {.help = "highest modulation of the power table"}),
        field<&Command::referenceSec>("referenceSec", {.help = "reference spectrum efficiency class"}),
        field<&Command::availableMaxPowerCutback>(
            "availableMaxPowerCutback",
            {.help = "cutback of the maximum power; counts only if isMaxPowerCutbackValid",
             .presence = Presence::Defaulted}),
        field<&Command::isMaxPowerCutbackValid>(
            "isMaxPowerCutbackValid",
            {.help = "whether the cutback applies to this read", .presence = Presence::Defaulted}),
    };
    static constexpr std::array response{
        field<&Response::NumberOfChannels>("NumberOfChannels", {.help = "radio channels of the node"}),
        field<&Response::MinTemp>("MinTemp", {.help = "lowest operating temperature"}),
        field<&Response::MaxTemp>("MaxTemp", {.help = "highest operating temperature"}),
        field<&Response::AvailableMinRFOutputPower>("AvailableMinRFOutputPower",
                                                    {.help = "lowest output power"}),
        field<&Response::AvailableMaxRFOutputPower>("AvailableMaxRFOutputPower",
                                                    {.help = "highest output power for each modulation"}),
        field<&Response::MinTXFrequency>("MinTXFrequency",
                                         {.unit = "kHz", .help = "lowest transmit frequency"}),
        field<&Response::MaxTXFrequency>("MaxTXFrequency",
                                         {.unit = "kHz", .help = "highest transmit frequency"}),
        field<&Response::MinRXFrequency>("MinRXFrequency",
                                         {.unit = "kHz", .help = "lowest receive frequency"}),
        field<&Response::MaxRXFrequency>("MaxRXFrequency",
                                         {.unit = "kHz", .help = "highest receive frequency"}),
        field<&Response::FrequencyStepSize>("FrequencyStepSize",
                                            {.unit = "kHz", .help = "step of the frequencies"}),
        field<&Response::MinTXFrequencyStep>("MinTXFrequencyStep", {.help = "lowest transmit step"}),
        field<&Response::MaxTXFrequencyStep>("MaxTXFrequencyStep", {.help = "highest transmit step"}),
        field<&Response::MinRXFrequencyStep>("MinRXFrequencyStep", {.help = "lowest receive step"}),
        field<&Response::MaxRXFrequencyStep>("MaxRXFrequencyStep", {.help = "highest receive step"}),
        field<&Response::TXBaseFrequency>(
            "TXBaseFrequency", {.unit = "kHz", .help = "frequency from which transmit steps count"}),
        field<&Response::RXBaseFrequency>(
            "RXBaseFrequency", {.unit = "kHz", .help = "frequency from which receive steps count"}),
        field<&Response::FrequencyBand>("FrequencyBand", {.help = "frequency band"}),
        field<&Response::FrequencySubBand>("FrequencySubBand", {.help = "sub-band"}),
        field<&Response::DuplexType>("DuplexType",
                                     {.help = "duplex distance: 'Variable', 'Fixed' or 'UNDEFINED'"}),
        field<&Response::AvailableRSECs>("AvailableRSECs", {.help = "reference spectrum efficiency classes"}),
        field<&Response::TapsCapable>("TapsCapable", {.help = "whether TAPS is possible"}),
        field<&Response::RfLoopAvailable>("RfLoopAvailable", {.help = "whether the RF loop is possible"}),
        field<&Response::CarrierAggregationCapable>("CarrierAggregationCapable",
                                                    {.help = "whether carrier aggregation is possible"}),
        field<&Response::SpaceDiversityCombinerCapable>(
            "SpaceDiversityCombinerCapable", {.help = "whether the radio has a space diversity combiner"}),
        field<&Response::LongHaulBoosterCapable>("LongHaulBoosterCapable",
                                                 {.help = "whether a booster is possible"}),
        field<&Response::PathLatencyCapable>("PathLatencyCapable",
                                             {.help = "whether path latency can be managed"}),
        field<&Response::Is2T2R>("Is2T2R",
                                 {.help = "whether the radio unit has two transmitters and two receivers"}),
    };
    static constexpr std::array faults{
        FaultNote{zyr_top_api::eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds",
                  "The node has no such radio channel."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.GetRadioChannelCapability, radio capabilities not available",
                  "The radio does not tell its capabilities."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.GetRadioChannelCapability failed to set temporary max power cutback. SPC Result : <n>",
                  "The power calculator refused the cutback."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.GetRadioChannelCapability failed to get max output power for each modulation. SPC "
                  "Result : <n>",
                  "The power calculator failed."},
        FaultNote{
            zyr_top_api::eTI_E_FAILED,
            "CRI.GetRadioChannelCapability failed to unset temporary max power cutback. SPC Result : <n>",
            "The power calculator kept the cutback."},
    };
};

} // namespace zyr_registration
