#pragma once

#include "NodeDescription.h"
#include "Session.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <functional>

namespace zyr_ctl
{

/// How an answer is watched.
struct WatchOptions
{
    CLI::Option* watch = nullptr;
    double seconds = 2;      ///< between two calls
    std::uint64_t count = 0; ///< how many calls; 0: until somebody stops it
};

/// Gives a subcommand the options --watch[=SECONDS] and --count N.
void addWatchOptions(CLI::App& subcommand, WatchOptions& options);

/// Asks again and again and shows each answer with its number and the time, and with marks where it differs
/// from the one before. As JSON: a line per answer with "changed", the paths, and "value".
/// @param fields  the description of the answer
void watch(Session& session, const WatchOptions& options, const std::vector<FieldDescription>& fields,
           const std::function<Value()>& ask);

} // namespace zyr_ctl
