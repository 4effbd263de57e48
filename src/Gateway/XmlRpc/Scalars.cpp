#include "Scalars.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace zyr_gateway::scalars
{

namespace
{

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kBase64Digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// `from_chars` knows no plus sign. "+-1" stays wrong, because only a digit or a point may follow the plus.
std::string_view withoutPlus(std::string_view text)
{
    const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    return plus ? text.substr(1) : text;
}

std::string withoutBlanks(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        if (kBlanks.find(c) == std::string_view::npos) {
            out += c;
        }
    }
    return out;
}

/// The number of padding signs at the end of a base64 text, 0 to 2.
std::size_t paddingOf(std::string_view digits)
{
    const std::size_t last = digits.find_last_not_of('=');
    return last == std::string_view::npos ? digits.size() : digits.size() - last - 1;
}

} // namespace

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<std::int64_t> integer(std::string_view text)
{
    const std::string_view digits = withoutPlus(text);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return number;
}

RealOutcome real(std::string_view text, double& number)
{
    const std::string_view digits = withoutPlus(text);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc::invalid_argument || end != digits.data() + digits.size()) {
        return RealOutcome::NotANumber;
    }
    const bool finite = error == std::errc{} && std::isfinite(number);
    return finite ? RealOutcome::Good : RealOutcome::NotFinite;
}

std::optional<std::string> base64(std::string_view text)
{
    const std::string digits = withoutBlanks(text);
    const std::size_t padding = paddingOf(digits);
    if (digits.size() % 4 != 0 || padding > 2) {
        return std::nullopt;
    }
    std::string bytes;
    std::uint32_t bits = 0;
    unsigned bitCount = 0;
    for (const char c : std::string_view(digits).substr(0, digits.size() - padding)) {
        const std::size_t digit = kBase64Digits.find(c);
        if (digit == std::string_view::npos) {
            return std::nullopt;
        }
        bits = (bits << 6U) | static_cast<std::uint32_t>(digit);
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            bytes += static_cast<char>((bits >> bitCount) & 0xFFU);
        }
    }
    return bytes;
}

std::string text(double number)
{
    // The longest: the smallest denormal has 324 places behind the point, the largest number 309 before it.
    std::array<char, 512> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed);
    return error == std::errc{} ? std::string(buffer.data(), end) : std::string();
}

} // namespace zyr_gateway::scalars
