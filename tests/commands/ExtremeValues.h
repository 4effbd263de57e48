#pragma once

#include <cstdint>
#include <limits>

namespace zyr_top_api
{

// What fields of 32 bits hold at their ends.
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::uint32_t kUnsignedMax = std::numeric_limits<std::uint32_t>::max();

} // namespace zyr_top_api
