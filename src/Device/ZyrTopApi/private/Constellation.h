#pragma once

#include "ModulationAndCoding.h"

namespace zyr_top_api
{

/// The constellation of a modulation, `UNDEFINED` for a value that isn't in the table.
inline Modulation constellationOf(ModulationAndCoding modulationAndCoding)
{
    const ModulationAndCode* const row = findModulationAndCode(modulationAndCoding);
    return row != nullptr ? row->modulation : Modulation::UNDEFINED;
}

} // namespace zyr_top_api
