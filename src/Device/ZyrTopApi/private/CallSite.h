#pragma once

#include "TylTrace.h"

namespace zyr_top_api
{

/// The place of a call, for a function that logs in its caller's name: its last parameter, defaulted.
struct CallSite
{
    explicit CallSite(const char* file = __builtin_FILE(), int line = __builtin_LINE(),
                      const char* function = __builtin_FUNCTION())
        : header{file, line, function}
    {}

    TylTraceHeader header;
};

} // namespace zyr_top_api
