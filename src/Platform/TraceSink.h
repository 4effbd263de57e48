#pragma once

#include "TylTrace.h"

#include <chrono>
#include <string_view>

#include <sys/types.h>

namespace zyr_platform
{

/// One message of the trace. The texts hold as long as the sink's `write` runs; the header's texts and the
/// channel's name hold to the end of the process.
struct TraceRecord
{
    std::string_view channel;
    TylTraceLevel level = 0;
    TylTraceHeader header;
    std::string_view text;                      ///< any bytes
    pid_t threadId = 0;                         ///< the kernel's number of the thread that wrote the message
    std::chrono::system_clock::time_point time; ///< when the message was written
};

/// Takes the messages of the trace.
class TraceSink
{
  public:
    virtual ~TraceSink() = default;

    /// Takes one record. Called from every thread that traces, several at once. An exception is dropped and
    /// so is what the sink itself traces, because a trace must not disturb what it watches.
    virtual void write(const TraceRecord& record) = 0;
};

} // namespace zyr_platform
