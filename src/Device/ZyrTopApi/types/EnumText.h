#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The texts of an enumeration without gaps, ordered by value.
template <std::size_t Count>
using EnumTexts = std::array<std::string_view, Count>;

/// Gives the text of `value`, or `fallback` if it has none. `first` is the value of the first text.
template <class Enum, std::size_t Count>
constexpr std::string_view textOf(const EnumTexts<Count>& texts, Enum value, std::string_view fallback,
                                  std::uint32_t first = 0)
{
    // Values below `first`, negative ones too, wrap to the far end and so have no text.
    const auto index = static_cast<std::uint32_t>(value) - first;
    return index < Count ? texts[index] : fallback;
}

/// Gives the value whose text is exactly `text`, or `fallback` if there is none; the first text has value 0.
template <class Enum, std::size_t Count>
constexpr Enum valueOf(const EnumTexts<Count>& texts, std::string_view text, Enum fallback)
{
    for (std::size_t index = 0; index < Count; ++index) {
        if (texts[index] == text) {
            return static_cast<Enum>(index);
        }
    }
    return fallback;
}

/// One row of the text table of an enumeration whose values have gaps.
template <class Enum>
struct EnumTextRow
{
    Enum value;
    std::string_view text;
};

/// Gives the text of the first row with `value`, or `fallback` if there is none.
template <class Enum, std::size_t Count>
constexpr std::string_view textOf(const std::array<EnumTextRow<Enum>, Count>& rows, Enum value,
                                  std::string_view fallback)
{
    for (const auto& row : rows) {
        if (row.value == value) {
            return row.text;
        }
    }
    return fallback;
}

/// Gives the value of the first row whose text is exactly `text`, or `fallback` if there is none.
template <class Enum, std::size_t Count>
constexpr Enum valueOf(const std::array<EnumTextRow<Enum>, Count>& rows, std::string_view text, Enum fallback)
{
    for (const auto& row : rows) {
        if (row.text == text) {
            return row.value;
        }
    }
    return fallback;
}

} // namespace zyr_top_api
