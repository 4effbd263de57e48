#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The reference spectrum efficiency class.
enum class ReferenceSec : std::uint32_t
{
    Sec2 = 0,
    Sec4L = 1,
    Sec4H = 2,
    Sec5B = 3,
    Sec6B = 4,
    Sec5LB = 5,
    Sec5HB = 6,
    Sec6LB = 7,
    Sec6HB = 8,
    Sec7B = 9,
};

/// The text of a class, "UNDEFINED" for a value without one.
ZYR_EXPORT std::string_view referenceSecToString(ReferenceSec value);

} // namespace zyr_top_api
