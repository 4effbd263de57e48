#pragma once

#include "Value.h"

#include <string>
#include <string_view>

// Values that are shown nowhere.

namespace zyr_ctl
{

using zyr_gateway::Value;

/// Whether a field of this name holds a secret, such as "masterKey" or "password": by the name alone, so that
/// it holds for methods too that the node doesn't describe.
bool isSecretName(std::string_view name);

/// The value with "(hidden)" in the place of its secret members, at any depth.
Value withoutSecrets(const Value& value);

/// Overwrites a text that was secret and empties it.
void wipe(std::string& text);

/// Wipes a text when it is done with, however that comes. Best effort: copies made on the way to the node,
/// such as the document that is sent, aren't reached.
class Wiping
{
  public:
    explicit Wiping(std::string& text) : m_text(text) {}
    ~Wiping() { wipe(m_text); }
    Wiping(const Wiping&) = delete;
    Wiping& operator=(const Wiping&) = delete;

  private:
    std::string& m_text;
};

/// An XML-RPC document, or the beginning of one, with "(hidden)" in the place of its secret members' values.
std::string withoutSecretsInXml(std::string_view xml);

} // namespace zyr_ctl
