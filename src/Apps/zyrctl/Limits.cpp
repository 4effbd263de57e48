#include "Limits.h"

#include "Text.h"

#include <cmath>
#include <limits>

namespace zyr_ctl
{

namespace
{

CLI::Validator numberFrom(double minimum, double maximum, const std::string& accepted)
{
    return {[=](const std::string& text) {
                double number = NAN;
                const bool isNumber = CLI::detail::lexical_cast(text, number);
                return isNumber && number >= minimum && number <= maximum
                           ? std::string()
                           : inQuotes(text) + " is not " + accepted;
            },
            "NUMBER"};
}

} // namespace

CLI::Validator oneOrMore()
{
    return numberFrom(1, std::numeric_limits<double>::max(), "a number from 1 on");
}

CLI::Validator notNegative()
{
    return numberFrom(0, std::numeric_limits<double>::max(), "a number from 0 on");
}

CLI::Validator secondsOfADay()
{
    constexpr double day = 86400;
    return numberFrom(0, day, "a number from 0 to 86400");
}

} // namespace zyr_ctl
