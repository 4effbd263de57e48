#include "DescriptorSink.h"

#include "TraceFormat.h"

#include <cerrno>
#include <string>
#include <string_view>

namespace zyr_platform
{

namespace
{

// One `write` is enough but for signals, pipes and full disks.
bool writeWhole(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

void DescriptorSink::write(const TraceRecord& record)
{
    static thread_local std::string line;
    line.clear();
    appendTraceRecord(line, record);
    if (!writeWhole(m_descriptor, line)) {
        ++m_lostRecords;
    }
}

} // namespace zyr_platform
