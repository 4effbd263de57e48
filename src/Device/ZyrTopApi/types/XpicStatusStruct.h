#pragma once

#include <cstdint>

namespace zyr_top_api
{

/// What the XPIC receiver of the slave measures.
struct XpicStatusStruct
{
    std::int32_t xpdDbTenths = 0; ///< Cross-polar discrimination, in tenths of a decibel.
    std::int32_t slaveCarrierOffsetHz = 0;
    std::uint8_t slaveSweepInProgress = 0;
    std::uint8_t calibStatus = 0;
};

} // namespace zyr_top_api
