#pragma once

#include <cstdint>

namespace zyr_top_api
{

/// The transceivers of a radio unit, as `RauPowerMode::trxId` names them.
inline constexpr std::uint8_t kTrxUndefined = 0;
inline constexpr std::uint8_t kTrxFirst = 1;
inline constexpr std::uint8_t kTrxSecond = 2;
inline constexpr std::uint8_t kTrxBoth = 255;

/// The power mode of the transceivers of a radio unit: two bytes, handed over by value. Any bytes may occur.
struct RauPowerMode
{
    std::uint8_t trxId = kTrxFirst; ///< The transceiver that is meant.
    /// Four bits, two for each transceiver: those of the first in bits 0 and 1, those of the second in bits 2
    /// and 3. What the two bits mean is the radio unit's own.
    std::uint8_t powerMode = 0;
};

static_assert(sizeof(RauPowerMode) == 2);

/// Whether the mode has no bit that isn't its transceiver's; false for any mode of an undefined or unknown
/// one.
constexpr bool isOfItsTransceiver(RauPowerMode mode)
{
    switch (mode.trxId) {
    case kTrxFirst:
        return (mode.powerMode & ~0x03U) == 0;
    case kTrxSecond:
        return (mode.powerMode & ~0x0CU) == 0;
    case kTrxBoth:
        return (mode.powerMode & ~0x0FU) == 0;
    default:
        return false;
    }
}

} // namespace zyr_top_api
