#pragma once

#include <string_view>

namespace zyr_top_api
{

/// The way of a command through the frame.
enum class Route
{
    Dispatched,         ///< under the command mutex, one at a time
    Gated,              ///< like `Dispatched`, refused while the test gate is closed
    DispatchedUnlocked, ///< outside the command mutex: the command may block as long as its caller wishes
    Direct,             ///< not dispatched: the registering module calls the implementation itself
};

/// What a command is called, at every place where it is called by a name. Each command states it once, as the
/// compile-time constant `identity`; everything that lists commands is derived from these.
struct CommandIdentity
{
    std::string_view wireName;      ///< name of the XML-RPC method
    std::string_view className;     ///< name in the frame's "Running" line
    std::string_view responseLabel; ///< name in the frame's "Return" line
    const char* traceChannel;       ///< the command's own trace channel
    Route route = Route::Dispatched;

    constexpr bool isGated() const { return route == Route::Gated; }
    constexpr bool isDispatched() const { return route != Route::Direct; }
};

} // namespace zyr_top_api
