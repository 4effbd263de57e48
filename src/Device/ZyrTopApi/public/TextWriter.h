#pragma once

#include "Export.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zyr_top_api
{

/// Append-only writer of the library's texts: labels, numbers, flags as digits, raw bytes.
///
/// It holds its text itself, allocating nothing as long as that isn't longer than any usual one. It knows no
/// locale and keeps no format from one value to the next. Numbers are decimal. Bytes can't be streamed by
/// accident: say `raw` or convert to a wider type. What writes is out of line: a print form is a row of
/// calls, and the library has many of them.
class ZYR_EXPORT TextWriter
{
  public:
    TextWriter() = default;
    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;

    /// What has been written, until more is written.
    std::string_view view() const { return {m_begin, m_next}; }
    std::string string() const;

    TextWriter& operator<<(std::string_view text);
    // So the compiler measures literals, even where it saves space.
    [[gnu::always_inline]] TextWriter& operator<<(const char* text)
    {
        return *this << std::string_view(text, __builtin_strlen(text));
    }
    TextWriter& operator<<(const std::string& text) { return *this << std::string_view(text); }

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
    static constexpr std::size_t kUsual = 2000; // the status of a radio channel takes some 1200

    TextWriter& digit(bool flag);
    void reserve(std::size_t size)
    {
        if (static_cast<std::size_t>(m_end - m_next) < size) [[unlikely]] {
            grow(size);
        }
    }
    void grow(std::size_t size);

    std::array<char, kUsual> m_usual; // not initialised: only what has been written is ever read
    std::string m_longer;             // takes the place of the other when that is full
    char* m_begin = m_usual.data();
    char* m_next = m_begin;
    char* m_end = m_begin + kUsual;
};

namespace detail
{

/// A callable that writes a text, without its type, so that what happens to the text is compiled once.
struct TextSource
{
    const void* callable;
    void (*write)(const void* callable, TextWriter& text);
};

template <std::invocable<TextWriter&> Text>
TextSource textSource(const Text& text)
{
    return {std::addressof(text),
            [](const void* callable, TextWriter& writer) { (*static_cast<const Text*>(callable))(writer); }};
}

ZYR_EXPORT std::string written(TextSource source);

} // namespace detail

/// The text that a callable writes.
template <std::invocable<TextWriter&> Text>
std::string written(const Text& text)
{
    return detail::written(detail::textSource(text));
}

/// The text that a record prints of itself with `print(TextWriter&)`.
template <class Record>
std::string printed(const Record& record)
{
    return written([&](TextWriter& text) { record.print(text); });
}

} // namespace zyr_top_api
