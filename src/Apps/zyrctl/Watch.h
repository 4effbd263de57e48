#pragma once

#include "NodeDescription.h"
#include "Session.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace zyr_ctl
{

/// How an answer is watched.
struct WatchOptions
{
    CLI::Option* watch = nullptr;
    std::string seconds = "2"; ///< between two calls; a text, since a flag takes whole numbers alone
    std::uint64_t count = 0;   ///< how many calls; 0: until somebody stops it
};

/// Makes lines of an answer and the paths of what has changed in it.
using Render = std::function<std::vector<Line>(const Value& answer, const std::set<std::string>& changed)>;

/// Gives a subcommand the options --watch[=SECONDS] and --count N.
void addWatchOptions(CLI::App& subcommand, WatchOptions& options);

/// Asks again and again and shows each answer with its number and the time, and with marks where it differs
/// from the one before; on a terminal each in the place of the one before. As JSON: a line per answer with
/// "changed", the paths, and "value". While the node can't be reached it says so and goes on.
/// @throws Unreachable  from the first call
void watch(Session& session, const WatchOptions& options, const std::function<Value()>& ask,
           const Render& render);

/// Watches an answer as a picture, with marks before the lines that have changed.
void watchPicture(Session& session, const WatchOptions& options, const std::function<Value()>& ask,
                  const std::function<std::vector<Line>(const Value& answer)>& picture);

} // namespace zyr_ctl
