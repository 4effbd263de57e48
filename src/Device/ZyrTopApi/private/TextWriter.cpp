#include "TextWriter.h"

#include <algorithm>
#include <charconv>

namespace zyr_top_api
{

namespace
{

constexpr std::size_t kLongestNumber =
    24; // "-9223372036854775808"; "-1.23457e-308" among those with a fraction

} // namespace

std::string TextWriter::string() const
{
    return std::string(view());
}

void TextWriter::grow(std::size_t size)
{
    const std::string_view text = view();
    const std::size_t used = text.size();
    if (m_longer.empty()) {
        m_longer = text;
    }
    m_longer.resize(2 * used + size);
    m_begin = m_longer.data();
    m_next = m_begin + used;
    m_end = m_begin + m_longer.size();
}

TextWriter& TextWriter::operator<<(std::string_view text)
{
    reserve(text.size());
    m_next = std::copy(text.begin(), text.end(), m_next);
    return *this;
}

TextWriter& TextWriter::raw(unsigned char byte)
{
    reserve(1);
    *m_next++ = static_cast<char>(byte);
    return *this;
}

TextWriter& TextWriter::digit(bool flag)
{
    return raw(flag ? '1' : '0');
}

TextWriter& TextWriter::operator<<(double number)
{
    constexpr int kSignificantDigits = 6;
    reserve(kLongestNumber);
    m_next = std::to_chars(m_next, m_end, number, std::chars_format::general, kSignificantDigits).ptr;
    return *this;
}

TextWriter& TextWriter::operator<<(std::int32_t number)
{
    reserve(kLongestNumber);
    m_next = std::to_chars(m_next, m_end, number).ptr;
    return *this;
}

TextWriter& TextWriter::operator<<(std::uint32_t number)
{
    reserve(kLongestNumber);
    m_next = std::to_chars(m_next, m_end, number).ptr;
    return *this;
}

TextWriter& TextWriter::operator<<(std::int64_t number)
{
    reserve(kLongestNumber);
    m_next = std::to_chars(m_next, m_end, number).ptr;
    return *this;
}

TextWriter& TextWriter::operator<<(std::uint64_t number)
{
    reserve(kLongestNumber);
    m_next = std::to_chars(m_next, m_end, number).ptr;
    return *this;
}

TextWriter& TextWriter::hex(std::uint32_t number)
{
    reserve(kLongestNumber);
    m_next = std::to_chars(m_next, m_end, number, 16).ptr;
    return *this;
}

TextWriter& TextWriter::word(bool flag)
{
    return *this << (flag ? std::string_view("true") : std::string_view("false"));
}

std::string detail::written(TextSource source)
{
    TextWriter text;
    source.write(source.callable, text);
    return text.string();
}

} // namespace zyr_top_api
