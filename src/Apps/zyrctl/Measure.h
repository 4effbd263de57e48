#pragma once

#include "NodeDescription.h"

#include <string>

// Numbers with units, as people read them. Pure functions.

namespace zyr_ctl
{

/// What people call a unit of the wire, and how far the point moves for it: "0.1 dBm" is dBm and one digit,
/// "kHz" is MHz and three.
struct CommonUnit
{
    std::string name;
    int decimals = 0;
};

CommonUnit commonUnit(const std::string& unit);

/// A number of the wire in its common unit, without the unit: "-39.8", "14 920.000". All its digits are
/// there.
std::string digitsIn(const CommonUnit& unit, const Value& number);

/// A number of the wire with the unit that suits its size: "-39.8 dBm", "14 920.000 MHz", "250 kHz",
/// "26.7 µs". Long times are rounded.
/// @param unit  as the node describes it; empty: the number alone
std::string measured(const Value& number, const std::string& unit);

} // namespace zyr_ctl
