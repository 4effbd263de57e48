#pragma once

#include <nlohmann/json.hpp>

namespace zyr_gateway
{

/// One value as it travels between a client and the node, whatever the wire form.
///
/// null stands for "nil" (an absent optional), integers are signed 64-bit numbers, objects keep the order of
/// their members. A string holds UTF-8 text, except where a response carries raw bytes by contract or where a
/// client has sent base64.
using Value = nlohmann::ordered_json;

} // namespace zyr_gateway
