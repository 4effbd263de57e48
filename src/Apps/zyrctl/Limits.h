#pragma once

#include <CLI/CLI.hpp>

// What numbers of the command line can be; the library's own complaints hold numbers that nobody can read.

namespace zyr_ctl
{

/// A number from 1 on.
CLI::Validator oneOrMore();

/// A number from 0 on.
CLI::Validator notNegative();

/// Seconds, a day at most.
CLI::Validator secondsOfADay();

} // namespace zyr_ctl
