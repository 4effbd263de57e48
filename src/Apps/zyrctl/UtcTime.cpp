#include "UtcTime.h"

#include "Failure.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <optional>

namespace zyr_ctl
{

namespace
{

using std::chrono::sys_days;
using std::chrono::sys_seconds;

// Letters stand for digits of the field, all else for itself.
constexpr std::string_view kFields = "YMDhms";
constexpr std::string_view kWritten = "YYYY-MM-DDThh:mm:ss";
constexpr std::string_view kOnTheWire = "YYYYMMDDThh:mm:ss";

using Numbers = std::array<unsigned, kFields.size()>;

constexpr bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

// The numbers in a text of this form.
std::optional<Numbers> numbersOf(std::string_view text, std::string_view form)
{
    if (text.size() != form.size()) {
        return std::nullopt;
    }
    constexpr unsigned kTen = 10;
    Numbers numbers = {};
    for (std::size_t place = 0; place < form.size(); ++place) {
        const std::size_t field = kFields.find(form[place]);
        if (field == std::string_view::npos) {
            if (text[place] != form[place]) {
                return std::nullopt;
            }
        } else if (isDigit(text[place])) {
            numbers[field] = numbers[field] * kTen + static_cast<unsigned>(text[place] - '0');
        } else {
            return std::nullopt;
        }
    }
    return numbers;
}

// The numbers in a text of this form.
std::string textOf(Numbers numbers, std::string_view form)
{
    constexpr unsigned kTen = 10;
    std::string text(form);
    for (std::size_t place = form.size(); place-- > 0;) {
        const std::size_t field = kFields.find(form[place]);
        if (field != std::string_view::npos) {
            text[place] = static_cast<char>('0' + numbers[field] % kTen);
            numbers[field] /= kTen;
        }
    }
    return text;
}

// The moment that is meant in UTC; none if the calendar or the day doesn't have it.
std::optional<sys_seconds> momentOf(const Numbers& numbers)
{
    const auto [year, month, day, hour, minute, second] = numbers;
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(year)),
                                           std::chrono::month(month), std::chrono::day(day));
    constexpr unsigned kHours = 24;
    constexpr unsigned kSixty = 60;
    if (!date.ok() || hour >= kHours || minute >= kSixty || second >= kSixty) {
        return std::nullopt;
    }
    return sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
           std::chrono::seconds(second);
}

Numbers numbersOf(sys_seconds moment)
{
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(moment - day);
    return {static_cast<unsigned>(static_cast<int>(date.year())),
            static_cast<unsigned>(date.month()),
            static_cast<unsigned>(date.day()),
            static_cast<unsigned>(time.hours().count()),
            static_cast<unsigned>(time.minutes().count()),
            static_cast<unsigned>(time.seconds().count())};
}

std::string written(sys_seconds moment)
{
    return textOf(numbersOf(moment), kWritten) + "Z";
}

struct LocalTime
{
    sys_seconds moment;
    std::string zone; // as it is called at that moment
};

// What is meant if this computer's zone is.
LocalTime localTimeOf(const Numbers& numbers)
{
    constexpr int kFirstYear = 1900;
    std::tm time = {};
    time.tm_year = static_cast<int>(numbers[0]) - kFirstYear;
    time.tm_mon = static_cast<int>(numbers[1]) - 1;
    time.tm_mday = static_cast<int>(numbers[2]);
    time.tm_hour = static_cast<int>(numbers[3]);
    time.tm_min = static_cast<int>(numbers[4]);
    time.tm_sec = static_cast<int>(numbers[5]);
    time.tm_isdst = -1;
    const std::time_t seconds = std::mktime(&time);
    return {sys_seconds(std::chrono::seconds(seconds)), time.tm_zone == nullptr ? "" : time.tm_zone};
}

// What a zone such as "+01:00", "-0330" or "+02" is ahead of UTC.
std::optional<std::chrono::minutes> offsetOf(std::string_view zone)
{
    const bool isOffset = zone.starts_with('+') || zone.starts_with('-');
    for (const std::string_view form : {"hh:mm", "hhmm", "hh"}) {
        const auto numbers = isOffset ? numbersOf(zone.substr(1), form) : std::nullopt;
        if (numbers) {
            const std::chrono::minutes ahead(std::chrono::hours((*numbers)[3]) +
                                             std::chrono::minutes((*numbers)[4]));
            return zone.front() == '-' ? -ahead : ahead;
        }
    }
    return std::nullopt;
}

Failure zoneFailure(sys_seconds moment, const Numbers& numbers, std::string_view zone)
{
    const std::string taken = "the clock is set in UTC: ";
    const LocalTime local = localTimeOf(numbers);
    if (zone.empty()) {
        return usageFailure(taken + "give " + written(moment) + ", or " + written(local.moment) +
                            " if this computer's zone is meant");
    }
    if (lowerCase(zone) == "z" || lowerCase(zone) == "utc" || lowerCase(zone) == "gmt") {
        return usageFailure(taken + "give " + written(moment));
    }
    if (const auto offset = offsetOf(zone)) {
        return usageFailure(taken + "give " + written(moment - *offset));
    }
    if (zone == local.zone) {
        return usageFailure(taken + "give " + written(local.moment));
    }
    return usageFailure(taken + "give a time as 2026-01-14T08:30:05Z; the zone " + inQuotes(printable(zone)) +
                        " is not known here");
}

} // namespace

std::string wireTime(sys_seconds moment)
{
    return textOf(numbersOf(moment), kOnTheWire);
}

std::string wireTime(std::string_view text)
{
    std::string dateAndTime(text.substr(0, kWritten.size()));
    constexpr std::size_t kSeparator = kWritten.find('T');
    if (dateAndTime.size() > kSeparator && dateAndTime[kSeparator] == ' ') {
        dateAndTime[kSeparator] = 'T';
    }
    const auto numbers = numbersOf(dateAndTime, kWritten);
    const auto moment = numbers ? momentOf(*numbers) : std::nullopt;
    if (!moment) {
        throw usageFailure(inQuotes(printable(text)) +
                           " is no time; give one as 2026-01-14T08:30:05Z, or now");
    }
    std::string_view zone = text.substr(kWritten.size());
    zone.remove_prefix(std::min(zone.find_first_not_of(' '), zone.size()));
    if (zone != "Z") {
        throw zoneFailure(*moment, *numbers, zone);
    }
    return wireTime(*moment);
}

std::string utcTime(std::string_view wire)
{
    const auto numbers = numbersOf(wire, kOnTheWire);
    return numbers ? textOf(*numbers, kWritten) + "Z" : std::string(wire);
}

} // namespace zyr_ctl
