#include "Characters.h"

namespace zyr_gateway::characters
{

namespace
{

/// The length that the first byte announces, 0 when it cannot be a first byte.
std::size_t announcedLength(unsigned char first)
{
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return 2;
    }
    if (first >= 0xE0 && first <= 0xEF) {
        return 3;
    }
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

/// Whether the byte is a carriable character by itself. Without branches, so that many can be looked at at
/// once.
constexpr bool isAlone(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 0x80) & ((byte >= 0x20) | (byte == '\t') | (byte == '\n') | (byte == '\r'));
}

/// So many bytes the compiler can look at all at once.
constexpr std::size_t kAtOnce = 32;

/// Whether each of the first `kAtOnce` bytes is a carriable character.
bool areAlone(std::string_view text)
{
    unsigned char all = 1;
    for (std::size_t i = 0; i < kAtOnce; ++i) {
        all &= static_cast<unsigned char>(isAlone(text[i]));
    }
    return all != 0;
}

} // namespace

Character first(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = announcedLength(first);
    if (length == 0 || length > text.size()) {
        return {};
    }
    char32_t code = length == 1 ? first : first & (0x7FU >> length);
    for (const char c : text.substr(1, length - 1)) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0U) != 0x80U) {
            return {};
        }
        code = (code << 6U) | (byte & 0x3FU);
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    return overlong ? Character{} : Character{length, code};
}

bool isCarriable(char32_t code)
{
    return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code <= 0xD7FF) ||
           (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

std::size_t carriableLength(std::string_view text)
{
    std::size_t length = 0;
    while (length < text.size()) {
        if (text.size() - length >= kAtOnce && areAlone(text.substr(length))) {
            length += kAtOnce;
            continue;
        }
        if (isAlone(text[length])) {
            ++length;
            continue;
        }
        const Character character = first(text.substr(length));
        if (character.length == 0 || !isCarriable(character.code)) {
            break;
        }
        length += character.length;
    }
    return length;
}

void append(std::string& text, char32_t code)
{
    const auto following = [&](unsigned shift) {
        text += static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
    };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0U | (code >> 6U));
        following(0);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0U | (code >> 12U));
        following(6);
        following(0);
    } else {
        text += static_cast<char>(0xF0U | (code >> 18U));
        following(12);
        following(6);
        following(0);
    }
}

} // namespace zyr_gateway::characters
