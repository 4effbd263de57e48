#pragma once

#include "NodeDescription.h"

#include <string>
#include <vector>

// Descriptions as people read them. Pure functions.

namespace zyr_ctl
{

/// The help of a command in lines: what it does, the fields of request and response, its faults, an example.
/// @param room  columns of the terminal; 0: not known
std::vector<std::string> helpLines(const CommandDescription& command, std::size_t room = 0);

/// Whether a command's name fits a pattern: with "*" or "?" as a whole, else if it contains the pattern.
/// Capitals and small letters are alike; an empty pattern fits all.
bool fitsPattern(const std::string& name, const std::string& pattern);

} // namespace zyr_ctl
