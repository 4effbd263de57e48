#pragma once

#include "Export.h"

#include <atomic>
#include <cstdint>
#include <string_view>

/// Trace levels, used by number: 1 errors, 2 noteworthy events, 3 summaries of input and outcome, 4 steps,
/// 5 requests and responses, 6 entry of functions and details, 7 finest detail.
using TylTraceLevel = std::int32_t;

/// Header option of a trace channel. The node's channels all use the one value.
enum TylTraceHdrOption : std::uint32_t
{
    TylTraceHdrOption_Default = 256,
};

/// Where a message was written: the source file's path from the root of the sources, the line and the plain
/// name of the function. The texts must outlive the message (they are literals of the compiler).
struct TylTraceHeader
{
    const char* file = "";
    int line = 0;
    const char* function = "";
};

/// One named trace channel of the node's trace service.
///
/// A channel is constant-initialised, so that it costs nothing at load, and makes itself known to the trace
/// service when it is first asked for a level. It has static storage duration: the service keeps its address
/// to the end of the process. All operations may be called from any thread.
class ZYR_EXPORT TylTrace
{
  public:
    /// @param name          the channel's name, with static storage duration
    /// @param defaultLevel  highest level that is on unless the trace service was told otherwise
    constexpr TylTrace(const char* name, TylTraceLevel defaultLevel, TylTraceHdrOption headerOption) noexcept
        : m_name(name), m_defaultLevel(defaultLevel), m_headerOption(headerOption)
    {}
    TylTrace(const TylTrace&) = delete;
    TylTrace& operator=(const TylTrace&) = delete;

    /// True if messages of this level are wanted now. To be asked before a message is built.
    [[gnu::always_inline]] bool isEnabled(TylTraceLevel level) const noexcept
    {
        const TylTraceLevel current = m_level.load(std::memory_order_relaxed);
        return level <= current && (current != kUnattached || level <= attach());
    }

    /// Writes one message. The text may hold any bytes; it is not kept.
    void logMsg(TylTraceLevel level, const TylTraceHeader& header, std::string_view text) const;

    /// Writes the entry of a function, at level 6.
    void logEnterMsg(const TylTraceHeader& header, std::string_view text = {}) const;

    const char* name() const noexcept { return m_name; }
    TylTraceLevel defaultLevel() const noexcept { return m_defaultLevel; }
    TylTraceHdrOption headerOption() const noexcept { return m_headerOption; }

    /// Sets the highest level that is on. For the trace service alone.
    void setLevel(TylTraceLevel level) const noexcept { m_level.store(level, std::memory_order_relaxed); }

    /// Level of a channel that the trace service does not know yet; above every real level.
    static constexpr TylTraceLevel kUnattached = 255;

  private:
    /// Makes the channel known to the trace service and gives the level that it has there.
    TylTraceLevel attach() const noexcept;

    const char* m_name;
    TylTraceLevel m_defaultLevel;
    TylTraceHdrOption m_headerOption;
    mutable std::atomic<TylTraceLevel> m_level = kUnattached;
};
