#pragma once

#include <chrono>
#include <string>
#include <string_view>

// Times as people write them, "2026-01-14T08:30:05Z", and as a node's clock takes and gives them,
// "20260114T08:30:05". Both are in UTC.

namespace zyr_ctl
{

/// A moment as a node's clock takes it.
std::string wireTime(std::chrono::sys_seconds moment);

/// A time that somebody has written, as a node's clock takes it.
/// @throws Failure (usage)  if it is no time in UTC; with the same moment in UTC, where that can be told
std::string wireTime(std::string_view text);

/// A time that a node's clock has given, as people write it; a text of another form stays as it is.
std::string utcTime(std::string_view wire);

} // namespace zyr_ctl
