#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The characters of XML in UTF-8. Pure functions, for any thread.
namespace zyr_gateway::characters
{

/// A character of UTF-8: how many bytes it takes, 0 when they are not valid, and which it is.
struct Character
{
    std::size_t length = 0;
    char32_t code = 0;
};

/// The first character of a text that is not empty.
[[nodiscard]] Character first(std::string_view text);

/// Whether an XML 1.0 document can hold the character; surrogates are none.
[[nodiscard]] bool isCarriable(char32_t code);

/// How many bytes from the start on are valid UTF-8 of characters that an XML document can hold.
[[nodiscard]] std::size_t carriableLength(std::string_view text);

/// Adds the character to the text.
void append(std::string& text, char32_t code);

} // namespace zyr_gateway::characters
