#pragma once

#include <cstddef>
#include <cstdint>

namespace zyr_simulation
{

/// A foreign transmitter that the node's receivers hear.
struct Interferer
{
    static constexpr std::size_t kMost = 64; ///< interferers that a node hears

    std::uint32_t frequency_kHz = 0;     ///< In the middle of its width.
    std::uint32_t width_kHz = 28'000;    ///< From 1 kHz to 1 GHz.
    std::int32_t level_dBmTenths = -620; ///< As it is received, from -99 dBm to 0 dBm.
};

} // namespace zyr_simulation
