#include "Text.h"

#include "Codec.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>

namespace zyr_ctl
{

namespace
{

constexpr char kDelete = '\x7F';

std::string joined(const std::vector<std::string>& words, std::string_view lastSeparator)
{
    std::string text;
    for (std::size_t index = 0; index < words.size(); ++index) {
        const bool isLast = index + 1 == words.size();
        text += index == 0 ? "" : isLast ? lastSeparator : ", ";
        text += words[index];
    }
    return text;
}

std::string hexEscape(unsigned char byte)
{
    constexpr std::string_view digits = "0123456789abcdef";
    return {'\\', 'x', digits[byte >> 4U], digits[byte & 0xFU]};
}

std::string unicodeEscape(char c)
{
    return "\\u00" + hexEscape(static_cast<unsigned char>(c)).substr(2);
}

std::string escapeOf(char c)
{
    switch (c) {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return hexEscape(static_cast<unsigned char>(c));
    }
}

bool isFirstByte(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == kDelete;
}

// U+0080 to U+009F, which some terminals obey like escape sequences: C2 80 to C2 9F.
bool isHighControl(std::string_view text)
{
    return text.size() >= 2 && text[0] == '\xC2' && static_cast<unsigned char>(text[1]) < 0xA0;
}

std::string nowAs(const char* form)
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), form, &local)};
}

// JSON escapes the low control characters alone; the others would reach a terminal too.
std::string dumped(const Value& value, int indent)
{
    const std::string json = value.dump(indent, ' ', false, Value::error_handler_t::replace);
    std::string shown;
    for (std::size_t index = 0; index < json.size(); ++index) {
        if (isHighControl(std::string_view(json).substr(index))) {
            shown += unicodeEscape(json[++index]);
        } else if (json[index] == kDelete) {
            shown += unicodeEscape(kDelete);
        } else {
            shown += json[index];
        }
    }
    return shown;
}

} // namespace

std::string lowerCase(std::string_view text)
{
    std::string small(text);
    std::ranges::transform(small, small.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return small;
}

std::string inQuotes(std::string_view word)
{
    return '"' + std::string(word) + '"';
}

std::string commaList(const std::vector<std::string>& words)
{
    return joined(words, ", ");
}

std::string alternatives(const std::vector<std::string>& words)
{
    return joined(words, " or ");
}

std::string printable(std::string_view text)
{
    std::string shown;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (isHighControl(text.substr(index))) {
            shown += hexEscape(static_cast<unsigned char>(text[++index]));
        } else if (isControl(text[index])) {
            shown += escapeOf(text[index]);
        } else {
            shown += text[index];
        }
    }
    return zyr_gateway::carriableText(shown);
}

std::size_t widthOf(std::string_view text)
{
    return static_cast<std::size_t>(std::ranges::count_if(text, isFirstByte));
}

std::string shortened(std::string_view text, std::size_t width)
{
    if (width == 0 || widthOf(text) <= width) {
        return std::string(text);
    }
    std::size_t end = 0;
    for (std::size_t columns = 0; columns < width; ++end) {
        columns += isFirstByte(text[end]) ? 1 : 0;
    }
    return std::string(text.substr(0, end - 1)) + "…";
}

std::string padded(std::string_view text, std::size_t width)
{
    return std::string(text) + std::string(width - std::min(width, widthOf(text)), ' ');
}

std::string environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::string dateAndTime()
{
    return nowAs("%Y-%m-%d %H:%M:%S");
}

std::string timeOfDay()
{
    return nowAs("%H:%M:%S");
}

std::vector<std::string> linesOf(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string compactJson(const Value& value)
{
    return dumped(value, -1);
}

std::string indentedJson(const Value& value)
{
    return dumped(value, 2);
}

} // namespace zyr_ctl
