#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace bcm::types
{

/// A receiver chain of the modem.
enum class ModemChain : std::uint32_t
{
    Main = 0,
    XpicSlave = 1,
    MrcDiversity = 2,
    MrcDiversitySlave = 3,
    MimoSpatial = 4,
    MimoXSpatialSlave = 5,
    Max = 6, ///< No chain; the number of chains.
};

/// The text of a chain, "Max" for a value without one.
ZYR_EXPORT std::string_view modemChainToString(ModemChain value);

} // namespace bcm::types
