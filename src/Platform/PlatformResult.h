#pragma once

#include <cstdint>

namespace zyr_platform
{

/// Results of the platform's C functions. Whatever stands at `kFailed` or above is a failure.
inline constexpr std::uint32_t kOk = 0;
inline constexpr std::uint32_t kFailed = 0x8000;

} // namespace zyr_platform
