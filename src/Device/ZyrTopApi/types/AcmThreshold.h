#pragma once

#include "ModulationAndCoding.h"

#include <cstdint>

namespace zyr_top_api
{

/// A threshold at which the DSP switches the modulation, in the DSP's own unit.
struct AcmThreshold
{
    ModulationAndCoding modulationAndCoding = ModulationAndCoding::UNDEFINED;
    std::int32_t threshold = 0;
};

} // namespace zyr_top_api
