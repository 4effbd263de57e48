#pragma once

#include <cstdint>

namespace zyr_top_api
{

/// The power mode of one transmitter of a radio unit: two bytes, handed over by value.
struct RauPowerMode
{
    std::uint8_t trxId = 1;     ///< The transmitter, counted from 1.
    std::uint8_t powerMode = 0; ///< In the radio unit's own numbers.
};

static_assert(sizeof(RauPowerMode) == 2);

} // namespace zyr_top_api
