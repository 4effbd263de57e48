#pragma once

#include "Export.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zyr_top_api
{

/// Append-only writer of the library's texts: labels, numbers, flags as digits, raw bytes.
///
/// It knows no locale and keeps no format from one value to the next. Numbers are decimal. Bytes can't be
/// streamed by accident: say `raw` or convert to a wider type. The bodies are out of line: a print form is a
/// row of calls, and the library has many of them.
class ZYR_EXPORT TextWriter
{
  public:
    /// The target must outlive the writer. What it already holds stays.
    explicit TextWriter(std::string& target) : m_target(target) {}

    TextWriter& operator<<(std::string_view text);
    TextWriter& operator<<(const char* text);
    TextWriter& operator<<(const std::string& text);

    /// A flag as the digit 0 or 1. Takes nothing that merely converts to a flag, such as a pointer.
    template <std::same_as<bool> Flag>
    TextWriter& operator<<(Flag flag)
    {
        return digit(flag);
    }

    /// With six significant digits, as `%g` of `printf`: no trailing zeros, an exponent where it is shorter.
    TextWriter& operator<<(double number);

    TextWriter& operator<<(std::int16_t number) { return *this << std::int32_t{number}; }
    TextWriter& operator<<(std::uint16_t number) { return *this << std::uint32_t{number}; }
    TextWriter& operator<<(std::int32_t number);
    TextWriter& operator<<(std::uint32_t number);
    TextWriter& operator<<(std::int64_t number);
    TextWriter& operator<<(std::uint64_t number);

    TextWriter& operator<<(std::nullptr_t) = delete;
    TextWriter& operator<<(char) = delete;
    TextWriter& operator<<(signed char) = delete;
    TextWriter& operator<<(unsigned char) = delete;

    /// One byte as it is, NUL included.
    TextWriter& raw(unsigned char byte);

    /// A number in lower-case hexadecimal digits without a prefix.
    TextWriter& hex(std::uint32_t number);

    /// A flag as the word "true" or "false".
    TextWriter& word(bool flag);

  private:
    TextWriter& digit(bool flag);

    std::string& m_target;
};

/// The text that a record prints of itself with `print(TextWriter&)`.
template <class Record>
std::string printed(const Record& record)
{
    std::string text;
    TextWriter writer(text);
    record.print(writer);
    return text;
}

} // namespace zyr_top_api
