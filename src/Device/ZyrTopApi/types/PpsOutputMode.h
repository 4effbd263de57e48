#pragma once

#include "Export.h"

#include <cstdint>
#include <iosfwd>
#include <string_view>

namespace zyr_top_api
{

/// Whether the pulse per second is put out.
enum class PpsOutputMode : std::uint32_t
{
    Off = 0,
    On = 1,
    Auto = 2,
};

/// The text of an output mode, "Unknown" for a value without one.
ZYR_EXPORT std::string_view ppsOutputModeToString(PpsOutputMode value);

/// Prints the text of an output mode.
ZYR_EXPORT std::ostream& operator<<(std::ostream& stream, PpsOutputMode value);

} // namespace zyr_top_api
