#pragma once

#include "TylTrace.h"

#include <concepts>
#include <string>
#include <string_view>

namespace zyr_gateway
{

/// The gateway's trace channel.
inline constinit TylTrace gatewayTrace{"ZYR.GATEWAY", 3, TylTraceHdrOption_Default};

/// Logs the text that the callable makes, and only if the level is on.
template <std::invocable Text>
void log(TylTraceLevel level, const Text& text, const char* file = __builtin_FILE(),
         int line = __builtin_LINE(), const char* function = __builtin_FUNCTION())
{
    if (gatewayTrace.isEnabled(level)) {
        gatewayTrace.logMsg(level, {file, line, function}, text());
    }
}

/// What a client has sent, fit for a line of the trace: in quotes, cut, and without what is not printable.
[[nodiscard]] std::string forTrace(std::string_view text);

} // namespace zyr_gateway
