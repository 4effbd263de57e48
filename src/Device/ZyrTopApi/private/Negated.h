#pragma once

#include <cstdint>

namespace zyr_top_api
{

/// The negated number, wrapping round for the one that has no counterpart: a reading is never undefined.
constexpr std::int32_t negated(std::int32_t number)
{
    return static_cast<std::int32_t>(0U - static_cast<std::uint32_t>(number));
}

} // namespace zyr_top_api
