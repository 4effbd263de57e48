#pragma once

#include "NodeDescription.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// Values that are shown nowhere.

namespace zyr_ctl
{

/// Whether a field of this name holds a secret, such as "masterKey" or "password": by the name alone, so that
/// it holds for methods too that the node doesn't describe.
bool isSecretName(std::string_view name);

/// The names of secret fields: those that look so, and those that a node describes so.
class SecretNames
{
  public:
    /// Takes the names of secret fields, nested ones included.
    void learn(const std::vector<FieldDescription>& fields);

    bool contains(std::string_view name) const;

    /// The names of a value's secret members, at any depth, that aren't empty texts.
    std::vector<std::string> namesIn(const Value& value) const;

    /// The value with "(hidden)" in the place of its secret members, at any depth.
    Value hiddenIn(const Value& value) const;

    /// An XML-RPC document, or the beginning of one, with "(hidden)" in the place of its secret members'
    /// values.
    std::string hiddenInXml(std::string_view xml) const;

  private:
    std::set<std::string, std::less<>> m_described;
};

/// Overwrites a text that was secret and empties it.
void wipe(std::string& text);

/// Wipes a text when it is done with, however that comes. Copies made on the way to the node, such as the
/// document that is sent, are overwritten when they are given back to the heap.
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
} // namespace zyr_ctl
