#pragma once

#include "FFConfigType.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zyr_top_api
{

/// A modulation that a radio frame may use, as the hardware database has it.
struct RadioFrameModulationRecord
{
    std::string name;           ///< A text of `ModulationAndCoding`; readers skip an empty one.
    std::uint32_t capacity = 0; ///< In the database's unit.
    FFConfigType linkType = FFConfigType::Unknown; ///< The link type of the frame that it belongs to.
};

/// A radio frame as the hardware database has it.
struct RadioFrameRecord
{
    std::uint32_t radioFrameId = 0;
    std::int32_t channelSpacing = 0;
    std::string telecomStd;
    std::string airInterface;
    std::vector<RadioFrameModulationRecord>
        modulations; ///< Never empty: the first one's link type is the frame's.
};

} // namespace zyr_top_api
