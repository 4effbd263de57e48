#pragma once

#include "TraceSink.h"

#include <mutex>
#include <string>
#include <vector>

namespace zyr_platform
{

/// Keeps all records, for tests. All operations may be called from any thread.
class MemorySink : public TraceSink
{
  public:
    /// A record with a text of its own.
    struct Kept
    {
        std::string channel;
        TylTraceLevel level = 0;
        TylTraceHeader header;
        std::string text;
        pid_t threadId = 0;
        std::chrono::system_clock::time_point time;
    };

    void write(const TraceRecord& record) override;

    /// Everything kept, in the order in which it came.
    std::vector<Kept> records() const;

    /// Gives everything kept away and starts anew.
    std::vector<Kept> take();

  private:
    mutable std::mutex m_mutex;
    std::vector<Kept> m_records;
};

} // namespace zyr_platform
