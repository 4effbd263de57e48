#include "Measure.h"

#include "Scalars.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace zyr_ctl
{

namespace
{

constexpr std::int64_t kThousand = 1000;

struct UnitRow
{
    std::string_view wire;
    std::string_view name;
    int decimals;
};

constexpr std::array kCommonUnits{
    UnitRow{"0.1 dBm", "dBm", 1}, UnitRow{"0.1 dB", "dB", 1},     UnitRow{"0.0001", "", 4},
    UnitRow{"kHz", "MHz", 3},     UnitRow{"kbit/s", "Mbit/s", 3}, UnitRow{"us", "µs", 0},
    UnitRow{"degC", "°C", 0},
};

constexpr std::array<std::string_view, 4> kTimes{"ns", "us", "ms", "s"};

// "14 920": numbers of four digits stand together.
std::string grouped(std::string digits)
{
    constexpr std::size_t together = 4;
    constexpr std::size_t group = 3;
    for (std::size_t end = digits.size(); digits.size() > together && end > group;) {
        end -= group;
        digits.insert(end, " ");
    }
    return digits;
}

// The number with its last digits behind a point.
std::string withPoint(std::int64_t number, std::size_t decimals)
{
    std::string digits = std::to_string(number);
    const std::string sign = number < 0 ? "-" : "";
    digits.erase(0, sign.size());
    if (digits.size() <= decimals) {
        digits.insert(0, decimals + 1 - digits.size(), '0');
    }
    const std::string whole = grouped(digits.substr(0, digits.size() - decimals));
    return sign + whole + (decimals == 0 ? "" : "." + digits.substr(digits.size() - decimals));
}

std::string withUnit(const std::string& digits, const std::string& name)
{
    return name.empty() ? digits : digits + " " + name;
}

// A time in the largest unit of which there is one at least, to a tenth.
std::string timeText(std::int64_t number, const std::string& unit)
{
    const auto* time = std::ranges::find(kTimes, unit);
    constexpr std::int64_t ten = 10;
    std::int64_t divisor = 1;
    const auto isLong = [&] { return number / divisor >= kThousand || number / divisor <= -kThousand; };
    while (time + 1 != kTimes.end() && isLong()) {
        divisor *= kThousand;
        ++time;
    }
    const std::string name = commonUnit(std::string(*time)).name;
    if (divisor == 1) {
        return withUnit(withPoint(number, 0), name);
    }
    const double tenths = static_cast<double>(number) * ten / static_cast<double>(divisor);
    return withUnit(withPoint(std::llround(tenths), 1), name);
}

} // namespace

CommonUnit commonUnit(const std::string& unit)
{
    const auto* const row = std::ranges::find(kCommonUnits, unit, &UnitRow::wire);
    return row == kCommonUnits.end() ? CommonUnit{unit, 0}
                                     : CommonUnit{std::string(row->name), row->decimals};
}

std::string digitsIn(const CommonUnit& unit, const Value& number)
{
    if (number.is_number_integer()) {
        return withPoint(number.get<std::int64_t>(), static_cast<std::size_t>(unit.decimals));
    }
    return zyr_gateway::scalars::text(number.get<double>() / std::pow(10.0, unit.decimals));
}

std::string measured(const Value& number, const std::string& unit)
{
    if (unit.empty()) {
        return number.is_number_integer() ? number.dump() : digitsIn({}, number);
    }
    if (number.is_number_integer()) {
        const auto whole = number.get<std::int64_t>();
        if (std::ranges::find(kTimes, unit) != kTimes.end()) {
            return timeText(whole, unit);
        }
        const bool isThousandth = commonUnit(unit).decimals == 3;
        if (isThousandth && whole > -kThousand && whole < kThousand) {
            return withUnit(withPoint(whole, 0), unit);
        }
    }
    const CommonUnit common = commonUnit(unit);
    return withUnit(digitsIn(common, number), common.name);
}

} // namespace zyr_ctl
