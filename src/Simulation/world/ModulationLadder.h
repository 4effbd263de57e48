#pragma once

#include "ModulationAndCoding.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zyr_simulation
{

/// A modulation and what the simulated modem needs for it.
struct LadderRung
{
    zyr_top_api::ModulationAndCoding modulation;
    double bitsPerSymbol; ///< Half a bit for the half rate.
    std::int32_t requiredSnir_dBTenths;
};

/// All modulations, the most robust first: by constellation, the half rate before the full one, then by the
/// strength of the code from ultra strong to light. A modulation's place here serves as its PHY mode.
const std::vector<LadderRung>& modulationLadder();

/// The place of a modulation on the ladder. Nothing for a value that is no modulation.
std::optional<unsigned> ladderStep(zyr_top_api::ModulationAndCoding modulation);

} // namespace zyr_simulation
