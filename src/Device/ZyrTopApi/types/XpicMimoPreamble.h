#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The preamble that tells the two streams of a dual-stream link apart. The number 4 stands for no preamble
/// at all.
enum class XpicMimoPreamble : std::uint32_t
{
    Preamble_A = 0,
    Preamble_B = 1,
    Preamble_C = 2,
    Preamble_D = 3,
};

/// The text of a preamble, empty for a value without one.
ZYR_EXPORT std::string_view xpicMimoPreambleToString(XpicMimoPreamble value);

} // namespace zyr_top_api
