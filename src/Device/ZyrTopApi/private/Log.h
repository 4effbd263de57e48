#pragma once

#include "CallSite.h"
#include "TextWriter.h"
#include "TylTrace.h"

#include <concepts>
#include <memory>
#include <string_view>
#include <type_traits>

namespace zyr_top_api
{

namespace detail
{

/// Builds the text and hands it to the trace.
void logBuilt(const TylTrace& trace, TylTraceLevel level, const TylTraceHeader& header, TextSource source);
void logEnterBuilt(const TylTrace& trace, const TylTraceHeader& header, TextSource source);

} // namespace detail

// Both are always inlined: the place of the call then is but constants, of which a quiet trace stores none.

/// Logs a message whose text is built by the callable, and only if the level is on.
template <std::invocable<TextWriter&> Text>
[[gnu::always_inline]] inline void log(const TylTrace& trace, TylTraceLevel level, const Text& text,
                                       CallSite at = CallSite())
{
    if (trace.isEnabled(level)) {
        detail::logBuilt(trace, level, at.header(), detail::textSource(text));
    }
}

/// Logs a text that needs no building.
[[gnu::always_inline]] inline void log(const TylTrace& trace, TylTraceLevel level, std::string_view text,
                                       CallSite at = CallSite())
{
    if (trace.isEnabled(level)) {
        trace.logMsg(level, at.header(), text);
    }
}

/// Logs the entry of the calling function, at level 6.
inline void logEnter(const TylTrace& trace, CallSite at = CallSite())
{
    if (trace.isEnabled(6)) {
        trace.logEnterMsg(at.header());
    }
}

/// Logs the entry of the calling function with a text, at level 6.
template <std::invocable<TextWriter&> Text>
void logEnter(const TylTrace& trace, const Text& text, CallSite at = CallSite())
{
    if (trace.isEnabled(6)) {
        detail::logEnterBuilt(trace, at.header(), detail::textSource(text));
    }
}

} // namespace zyr_top_api
