#pragma once

#include "Value.h"

#include <string>
#include <string_view>

// Values that are shown nowhere. Pure functions.

namespace zyr_ctl
{

using zyr_gateway::Value;

/// Whether a field of this name holds a secret, such as "masterKey" or "password": by the name alone, so that
/// it holds for methods too that the node doesn't describe.
bool isSecretName(std::string_view name);

/// The value with "(hidden)" in the place of its secret members, at any depth.
Value withoutSecrets(const Value& value);

/// An XML-RPC document, or the beginning of one, with "(hidden)" in the place of its secret members' values.
std::string withoutSecretsInXml(std::string_view xml);

} // namespace zyr_ctl
