#include "TraceFormat.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <string_view>

namespace zyr_platform
{

namespace
{

void appendNumber(std::string& out, std::int64_t number)
{
    std::array<char, 20> digits{};
    auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    out.append(digits.data(), end);
}

void appendPadded(std::string& out, std::uint64_t number, std::size_t width)
{
    const std::size_t start = out.size();
    out.append(width, '0');
    for (std::size_t place = start + width; place > start; number /= 10) {
        out[--place] = static_cast<char>('0' + number % 10);
    }
}

void appendTime(std::string& out, std::chrono::system_clock::time_point time)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(std::chrono::floor<std::chrono::microseconds>(time - day));
    appendNumber(out, static_cast<int>(date.year()));
    out += '-';
    appendPadded(out, static_cast<unsigned>(date.month()), 2);
    out += '-';
    appendPadded(out, static_cast<unsigned>(date.day()), 2);
    out += 'T';
    appendPadded(out, static_cast<std::uint64_t>(clock.hours().count()), 2);
    out += ':';
    appendPadded(out, static_cast<std::uint64_t>(clock.minutes().count()), 2);
    out += ':';
    appendPadded(out, static_cast<std::uint64_t>(clock.seconds().count()), 2);
    out += '.';
    appendPadded(out, static_cast<std::uint64_t>(clock.subseconds().count()), 6);
    out += 'Z';
}

bool standsAsItIs(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x20 && value != 0x7F && byte != '\\';
}

void appendEscaped(std::string& out, char byte)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    out += "\\x";
    out += kDigits[value / 16];
    out += kDigits[value % 16];
}

void appendText(std::string& out, std::string_view text)
{
    std::size_t taken = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (standsAsItIs(text[place])) {
            continue;
        }
        out.append(text, taken, place - taken);
        taken = place + 1;
        if (text[place] == '\n') {
            out += "\n    ";
        } else {
            appendEscaped(out, text[place]);
        }
    }
    out.append(text, taken);
}

} // namespace

void appendTraceRecord(std::string& out, const TraceRecord& record)
{
    appendTime(out, record.time);
    out += ' ';
    appendNumber(out, record.level);
    out += ' ';
    out += record.channel;
    out += ' ';
    out += record.header.file;
    out += ':';
    appendNumber(out, record.header.line);
    out += ' ';
    out += record.header.function;
    out += ':';
    if (!record.text.empty()) {
        out += ' ';
        appendText(out, record.text);
    }
    out += '\n';
}

} // namespace zyr_platform
