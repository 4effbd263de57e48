#pragma once

#include <cstddef>
#include <string_view>

// What the sources of `XmlRpcServer` share.

namespace zyr_gateway
{

/// The longest answer, in bytes.
inline constexpr std::size_t kLongestAnswer = 8UL * 1024UL * 1024UL;

inline constexpr std::string_view kMulticall = "system.multicall";

} // namespace zyr_gateway
