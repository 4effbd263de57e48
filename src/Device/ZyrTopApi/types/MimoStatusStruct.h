#pragma once

#include <cstdint>

namespace zyr_top_api
{

/// What the receivers of a MIMO link measure.
struct MimoStatusStruct
{
    std::int32_t gainDifferenceDbTenths = 0; ///< In tenths of a decibel.
    std::uint32_t etaTenThousands = 0;       ///< In ten-thousandths.
    bool slaveSweepInProgress = false;
    bool spatialSlaveSweepStatus = false;
    std::int32_t xpdDbTenths = 0;        ///< In tenths of a decibel.
    std::int32_t spatialXpdDbTenths = 0; ///< In tenths of a decibel.
    std::int32_t spatialCarrierOffsetHz = 0;
    std::int32_t slaveCarrierOffsetHz = 0;
    std::int32_t spatialSlaveCarrierOffsetHz = 0;
    bool diversityMute = false;
};

} // namespace zyr_top_api
