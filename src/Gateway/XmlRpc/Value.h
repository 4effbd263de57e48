#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>

namespace zyr_gateway
{

/// One value as it travels between a client and the node, whatever the wire form.
///
/// null stands for "nil" (an absent optional), integers are signed 64-bit numbers, objects keep the order of
/// their members. A string holds UTF-8 text, except where a response carries raw bytes by contract. What only
/// some clients can send, and nothing here takes, is binary: base64, and dates.
using Value = nlohmann::ordered_json;

/// The subtype of a binary value that is the text of a date.
inline constexpr std::uint8_t kDateSubtype = 1;

} // namespace zyr_gateway
