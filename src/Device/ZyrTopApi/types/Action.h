#pragma once

#include <cstdint>

/// The direction of a delay operation of the DSP, whose value argument serves both ways.
enum class Action : std::uint32_t
{
    Read = 0,  ///< The DSP's value is read into the argument.
    Write = 1, ///< The argument's value is written to the DSP.
};
