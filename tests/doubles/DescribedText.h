#pragma once

#include <string_view>

namespace zyr_test
{

/// Whether a text is a number in decimal digits.
inline bool isNumber(std::string_view text)
{
    text.remove_prefix(text.starts_with('-') ? 1 : 0);
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Whether a text is one of those that a described one stands for: "<n>" is any number, "<name>" and other
/// words in such brackets are any text, none too.
inline bool matches(std::string_view described, std::string_view text)
{
    const std::size_t open = described.find('<');
    if (open == std::string_view::npos) {
        return described == text;
    }
    if (described.substr(0, open) != text.substr(0, open)) {
        return false;
    }
    const std::size_t close = described.find('>', open);
    const bool takesNumber = described.substr(open, close - open) == "<n";
    for (std::size_t end = open; end <= text.size(); ++end) {
        if ((!takesNumber || isNumber(text.substr(open, end - open))) &&
            matches(described.substr(close + 1), text.substr(end))) {
            return true;
        }
    }
    return false;
}

} // namespace zyr_test
