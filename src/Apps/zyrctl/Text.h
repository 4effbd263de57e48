#pragma once

#include "Value.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_ctl
{

using zyr_gateway::Value;

/// The text in small letters (ASCII).
std::string lowerCase(std::string_view text);

/// The word in quotes.
std::string inQuotes(std::string_view word);

/// "a, b, c".
std::string commaList(const std::vector<std::string>& words);

/// "a, b or c".
std::string alternatives(const std::vector<std::string>& words);

/// The text as a terminal may get it: what is not UTF-8 is replaced, control characters are shown as "\n",
/// "\t" or "\x1b", so that nothing that a node sends can steer the terminal.
std::string printable(std::string_view text);

/// How many columns of a terminal the text takes, one for each character.
std::size_t widthOf(std::string_view text);

/// The text with blanks behind it, up to a width.
std::string padded(std::string_view text, std::size_t width);

/// The text, or its beginning with "…", so that it takes no more than a width; 0: any width.
std::string shortened(std::string_view text, std::size_t width);

/// The value of a variable of the environment; empty if it isn't there.
std::string environment(const char* name);

/// The date and the time of the day: "2026-03-01 14:05:59".
std::string dateAndTime();

/// The time of the day: "14:05:59".
std::string timeOfDay();

/// The lines of a text; a line feed at its end begins no further line.
std::vector<std::string> linesOf(std::string_view text);

/// A value as JSON in one line.
std::string compactJson(const Value& value);

/// A value as JSON, indented.
std::string indentedJson(const Value& value);

} // namespace zyr_ctl
