#include "KeyPrint.h"

#include <crypt.h>

#include <array>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace zyr_simulation
{

namespace
{

/// Method, rounds and salt, drawn anew by every process.
const std::string& hashSetting()
{
    static const std::string setting = [] {
        constexpr unsigned long rounds = 1000;
        std::array<char, CRYPT_GENSALT_OUTPUT_SIZE> text{};
        // Without random bytes of ours it takes the system's.
        if (crypt_gensalt_rn("$6$", rounds, nullptr, 0, text.data(), static_cast<int>(text.size())) ==
            nullptr) {
            throw std::runtime_error("there is no salt for keys");
        }
        return std::string(text.data());
    }();
    return setting;
}

/// Two digits for a byte, since the hash would end at a byte of 0.
class Digits
{
  public:
    explicit Digits(std::string_view key)
    {
        constexpr std::string_view digits = "0123456789abcdef";
        char* to = m_text.data();
        for (const char byte : key) {
            const auto code = static_cast<unsigned char>(byte);
            *to++ = digits[code >> 4U];
            *to++ = digits[code & 0xFU];
        }
    }
    ~Digits() { explicit_bzero(m_text.data(), m_text.size()); }
    Digits(const Digits&) = delete;
    Digits& operator=(const Digits&) = delete;

    const char* text() const { return m_text.data(); }

  private:
    std::array<char, 2 * KeyPrint::kLongestKey + 1> m_text{};
};

} // namespace

KeyPrint::KeyPrint(std::string_view key)
{
    if (key.size() > kLongestKey) {
        throw std::invalid_argument("a key has at most " + std::to_string(kLongestKey) + " bytes, not " +
                                    std::to_string(key.size()));
    }
    const Digits digits(key);
    const auto workspace = std::make_unique<crypt_data>();
    const char* const hash = crypt_r(digits.text(), hashSetting().c_str(), workspace.get());
    if (hash != nullptr) {
        m_hash = hash;
    }
    explicit_bzero(workspace.get(), sizeof(crypt_data));
    if (m_hash.empty() || m_hash.front() == '*') {
        throw std::runtime_error("keys can't be hashed");
    }
}

} // namespace zyr_simulation
