#include "RadioType.h"

#include <array>
#include <stdexcept>
#include <string>

namespace zyr_simulation
{

namespace
{

using zyr_top_api::FrequencyCapability;
using zyr_top_api::ModulationAndCoding;

constexpr std::uint32_t kStepSize_kHz = 250;

/// The frequencies of a band whose two halves have the same width.
constexpr FrequencyCapability band(std::uint32_t number, std::uint32_t subBand, std::uint32_t tx_kHz,
                                   std::uint32_t rx_kHz, std::uint32_t width_kHz)
{
    const auto lastStep = width_kHz / kStepSize_kHz;
    return {.FrequencyBand = number,
            .FrequencySubBand = subBand,
            .MinTXFrequency = tx_kHz,
            .MaxTXFrequency = tx_kHz + width_kHz,
            .MinRXFrequency = rx_kHz,
            .MaxRXFrequency = rx_kHz + width_kHz,
            .FrequencyStepSize = kStepSize_kHz,
            .TXBaseFrequency = tx_kHz,
            .RXBaseFrequency = rx_kHz,
            .MinTXFrequencyStep = 0,
            .MaxTXFrequencyStep = lastStep,
            .MinRXFrequencyStep = 0,
            .MaxRXFrequencyStep = lastStep,
            .DuplexType = 0};
}

constexpr std::array<RadioType, 3> kTypes{
    RadioType{.name = "15 GHz",
              .frequencies = band(15, 1, 14'500'000, 14'920'000, 120'000),
              .features = {.RfLoopAvailable = true, .PathLatencyCapable = true},
              .minPower_dBmTenths = -50,
              .maxPower_dBmTenths = 260,
              .greatestInWideFrames = ModulationAndCoding::QAM_1024_LIGHT,
              .wideSpacing_kHz = 80'000,
              .greatestSpacing_kHz = 112'000,
              .unitLatency_ns = 5'000},
    RadioType{
        .name = "23 GHz",
        .frequencies = band(23, 2, 22'000'000, 23'008'000, 600'000),
        .features = {.RfLoopAvailable = true, .CarrierAggregationCapable = true, .PathLatencyCapable = true},
        .minPower_dBmTenths = -80,
        .maxPower_dBmTenths = 220,
        .greatestInWideFrames = ModulationAndCoding::UNDEFINED,
        .wideSpacing_kHz = 0,
        .greatestSpacing_kHz = 224'000,
        .unitLatency_ns = 4'000},
    RadioType{.name = "6 GHz long haul",
              .frequencies = band(6, 3, 5'930'000, 6'182'000, 240'000),
              .features = {.SpaceDiversityCombinerCapable = true, .LongHaulBoosterCapable = true},
              .minPower_dBmTenths = 0,
              .maxPower_dBmTenths = 310,
              .greatestInWideFrames = ModulationAndCoding::UNDEFINED,
              .wideSpacing_kHz = 0,
              .greatestSpacing_kHz = 80'000,
              .unitLatency_ns = 7'000},
};

} // namespace

const RadioType& radioType(unsigned number)
{
    if (number < 1 || number > kTypes.size()) {
        throw std::invalid_argument("the radio types are 1 to " + std::to_string(kTypes.size()) + ", not " +
                                    std::to_string(number));
    }
    return kTypes[number - 1];
}

FrequencyCapability frequenciesOf(const RadioType& type, unsigned subBand)
{
    auto frequencies = type.frequencies;
    if (subBand == 0) {
        return frequencies;
    }
    const auto steps = frequencies.MaxTXFrequencyStep / kSubBands;
    const auto first = steps * (subBand - 1);
    const auto last = first + steps;
    frequencies.FrequencySubBand = subBand;
    frequencies.MinTXFrequencyStep = frequencies.MinRXFrequencyStep = first;
    frequencies.MaxTXFrequencyStep = frequencies.MaxRXFrequencyStep = last;
    frequencies.MinTXFrequency = frequencies.TXBaseFrequency + first * frequencies.FrequencyStepSize;
    frequencies.MaxTXFrequency = frequencies.TXBaseFrequency + last * frequencies.FrequencyStepSize;
    frequencies.MinRXFrequency = frequencies.RXBaseFrequency + first * frequencies.FrequencyStepSize;
    frequencies.MaxRXFrequency = frequencies.RXBaseFrequency + last * frequencies.FrequencyStepSize;
    return frequencies;
}

} // namespace zyr_simulation
