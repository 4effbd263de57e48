#pragma once

#include "TylTrace.h"

namespace zyr_top_api
{

/// The place of a call, for a function that logs in its caller's name: its last parameter, defaulted.
class CallSite
{
  public:
    explicit CallSite(const char* file = __builtin_FILE(), int line = __builtin_LINE(),
                      const char* function = __builtin_FUNCTION())
        : m_header{file, line, function}
    {}

    /// A copy, to be made behind the question for the level: a quiet trace then stores nothing.
    TylTraceHeader header() const { return m_header; }

  private:
    TylTraceHeader m_header;
};

/// A place in a step that stands in a function of its own: records name the function that the step belongs
/// to.
inline CallSite within(const char* function, const char* file = __builtin_FILE(), int line = __builtin_LINE())
{
    return CallSite(file, line, function);
}

} // namespace zyr_top_api
