#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The frequencies that a radio can be set to: fourteen 32-bit words, handed over by value. Frequencies in
/// kHz.
struct FrequencyCapability
{
    std::uint32_t FrequencyBand = 0;
    std::uint32_t FrequencySubBand = 0;
    std::uint32_t MinTXFrequency = 0;
    std::uint32_t MaxTXFrequency = 0;
    std::uint32_t MinRXFrequency = 0;
    std::uint32_t MaxRXFrequency = 0;
    std::uint32_t FrequencyStepSize = 0;
    std::uint32_t TXBaseFrequency = 0;
    std::uint32_t RXBaseFrequency = 0;
    std::uint32_t MinTXFrequencyStep = 0;
    std::uint32_t MaxTXFrequencyStep = 0;
    std::uint32_t MinRXFrequencyStep = 0;
    std::uint32_t MaxRXFrequencyStep = 0;
    std::uint32_t DuplexType = 0; ///< 0 variable, 1 fixed distance between the two directions.
};

/// The text of `FrequencyCapability::DuplexType`, "UNDEFINED" for a number without one.
ZYR_EXPORT std::string_view duplexTypeToString(std::uint32_t duplexType);

} // namespace zyr_top_api
