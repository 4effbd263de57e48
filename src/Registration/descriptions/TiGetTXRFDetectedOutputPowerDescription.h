#pragma once

#include "Description.h"
#include "TiGetTXRFDetectedOutputPowerImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiGetTXRFDetectedOutputPowerImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiGetTXRFDetectedOutputPower::Command;
    using Response = zyr_top_api::TiGetTXRFDetectedOutputPower::Response;

    static constexpr std::string_view help =
        "Reads the detected output power of radio channel 1 with all its terms.";
    static constexpr Group group = Group::TestRf;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel, 1 only", {.range = Range{1, 1}, .isChannel = true}),
    };
    static constexpr std::array response{
        field<&Response::radioChannelId>("radio channel", {.unit = kNoUnit}),
        field<&Response::usingHighDetector>("whether the high detector is in use"),
        field<&Response::switchToHighLevel>("power from which the high detector is used",
                                            {.unit = "0.1 dBm"}),
        field<&Response::switchToLowLevel>("power from which the low detector is used", {.unit = "0.1 dBm"}),
        field<&Response::txRFDetectorADCValueHigh>("reading of the converter of the high detector",
                                                   {.unit = kNoUnit}),
        field<&Response::txRFDetectorADCValueLow>("reading of the converter of the low detector",
                                                  {.unit = kNoUnit}),
        field<&Response::powerFromVoltageHigh>("power from the voltage of the high detector",
                                               {.unit = "0.1 dBm"}),
        field<&Response::powerFromVoltageLow>("power from the voltage of the low detector",
                                              {.unit = "0.1 dBm"}),
        field<&Response::powerTemperatureCompensationHigh>("compensation of temperature of the high detector",
                                                           {.unit = "0.1 dB"}),
        field<&Response::powerTemperatureCompensationLow>("compensation of temperature of the low detector",
                                                          {.unit = "0.1 dB"}),
        field<&Response::powerFrequencyTemperatureCompensationHigh>(
            "compensation of frequency and temperature of the high detector", {.unit = "0.1 dB"}),
        field<&Response::powerFrequencyTemperatureCompensationLow>(
            "compensation of frequency and temperature of the low detector", {.unit = "0.1 dB"}),
        field<&Response::modulationCompensationHigh>("compensation of modulation of the high detector",
                                                     {.unit = "0.1 dB"}),
        field<&Response::modulationCompensationLow>("compensation of modulation of the low detector",
                                                    {.unit = "0.1 dB"}),
        field<&Response::bandwidthCompensationHigh>("compensation of bandwidth of the high detector",
                                                    {.unit = "0.1 dB"}),
        field<&Response::bandwidthCompensationLow>("compensation of bandwidth of the low detector",
                                                   {.unit = "0.1 dB"}),
        field<&Response::detectedPowerHigh>("power that the high detector sees", {.unit = "0.1 dBm"}),
        field<&Response::detectedPowerLow>("power that the low detector sees", {.unit = "0.1 dBm"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "testGetDetectedPower() failed", "The power could not be read."},
        FaultNote{eTI_E_FAILED, "testGetDetectorInUse() failed", "The detector in use could not be read."},
        FaultNote{eTI_E_FAILED, "testGetDetectorData() failed", "A detector could not be read."},
    };
};

} // namespace zyr_registration
