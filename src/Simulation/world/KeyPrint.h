#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zyr_simulation
{

/// What is kept in place of a key: a slow one-way hash with a salt that no other process has. It tells
/// whether two keys are the same and nothing else.
class KeyPrint
{
  public:
    static constexpr std::size_t kLongestKey = 64;

    /// The print of no key.
    KeyPrint() = default;

    /// @throws std::invalid_argument if the key is longer than `kLongestKey`; its text tells the length alone
    explicit KeyPrint(std::string_view key);

    bool operator==(const KeyPrint&) const = default;

  private:
    std::string m_hash;
};

} // namespace zyr_simulation
