#pragma once

#include <cstdint>

namespace zyr_top_api
{

/// The DSP's counts of received blocks and bytes.
struct DspErrorBlocks
{
    std::int32_t erroredBlocks = 0;
    std::int32_t backgroundBlocks = 0;
    std::int32_t errorBytes = 0;
    std::int32_t totalBytes = 0;
};

} // namespace zyr_top_api
