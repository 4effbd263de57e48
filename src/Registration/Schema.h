#pragma once

#include "Description.h"

#include <cstdint>
#include <span>

namespace zyr_registration
{

/// JSON Schema (draft 2020-12) of what methods take and give. For each method the document has two schemas
/// among its `$defs`: "<name>.request", of the struct that it takes, and "<name>.response", of the struct
/// that it gives. They tell the plain form of a request: what else the node takes from clients that have no
/// booleans or send nil for what may be left out isn't told. The texts of the enumerations stand there too,
/// under their names, and as "<name>.number" with the numbers. Beside the keywords of the draft, numbers have
/// their `unit`.
/// @param numberOfChannels  the radio channels of the node
Value schemaOf(std::span<const MethodNotes> methods, std::uint32_t numberOfChannels);

} // namespace zyr_registration
