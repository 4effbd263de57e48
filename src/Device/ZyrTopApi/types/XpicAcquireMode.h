#pragma once

#include <cstdint>

namespace zyr_top_api
{

/// How the XPIC receiver acquires. The numbers are the controller's and are passed through to it.
enum class XpicAcquireMode : std::uint32_t
{
};

/// Whether the XPIC receiver assumes an inverted spectrum. The numbers are the controller's and are passed
/// through to it.
enum class XpicSpectralInversionMode : std::uint32_t
{
};

} // namespace zyr_top_api
