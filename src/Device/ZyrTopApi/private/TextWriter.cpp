#include "TextWriter.h"

#include <array>
#include <charconv>
#include <concepts>

namespace zyr_top_api
{

namespace
{

template <std::integral Number>
void append(std::string& target, Number number, int base = 10)
{
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, base);
    target.append(digits.data(), end.ptr);
}

} // namespace

TextWriter& TextWriter::operator<<(std::string_view text)
{
    m_target.append(text);
    return *this;
}

TextWriter& TextWriter::operator<<(const char* text)
{
    m_target.append(text);
    return *this;
}

TextWriter& TextWriter::operator<<(const std::string& text)
{
    m_target.append(text);
    return *this;
}

TextWriter& TextWriter::digit(bool flag)
{
    m_target.push_back(flag ? '1' : '0');
    return *this;
}

TextWriter& TextWriter::operator<<(double number)
{
    constexpr int kSignificantDigits = 6;
    std::array<char, 24> digits; // "-1.23457e-308" is the longest
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::general, kSignificantDigits);
    m_target.append(digits.data(), end.ptr);
    return *this;
}

TextWriter& TextWriter::operator<<(std::int32_t number)
{
    append(m_target, number);
    return *this;
}

TextWriter& TextWriter::operator<<(std::uint32_t number)
{
    append(m_target, number);
    return *this;
}

TextWriter& TextWriter::operator<<(std::int64_t number)
{
    append(m_target, number);
    return *this;
}

TextWriter& TextWriter::operator<<(std::uint64_t number)
{
    append(m_target, number);
    return *this;
}

TextWriter& TextWriter::raw(unsigned char byte)
{
    m_target.push_back(static_cast<char>(byte));
    return *this;
}

TextWriter& TextWriter::hex(std::uint32_t number)
{
    append(m_target, number, 16);
    return *this;
}

TextWriter& TextWriter::word(bool flag)
{
    m_target.append(flag ? "true" : "false");
    return *this;
}

} // namespace zyr_top_api
