#pragma once

#include "ValueType.h"

#include <array>

// Numbers that stand for a missing value, for `FieldNotes::noValues`.

namespace zyr_registration
{

inline constexpr std::array kNoneYet{EnumText{-99, "none yet"}};
inline constexpr std::array kNotSupported{EnumText{-9999, "not supported"}};

} // namespace zyr_registration
