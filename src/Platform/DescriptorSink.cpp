#include "DescriptorSink.h"

#include "TraceFormat.h"

#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>

namespace zyr_platform
{

namespace
{

// One `write` is enough but for signals, pipes and full disks. Gives what could not be written.
std::string_view writeWhole(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            break;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return bytes;
}

} // namespace

void DescriptorSink::write(const TraceRecord& record)
{
    static thread_local std::string line;
    line.clear();
    // Behind half a record, the next one begins a line of its own.
    if (m_isTorn.exchange(false)) {
        line += '\n';
    }
    appendTraceRecord(line, record);
    const std::string_view rest = writeWhole(m_descriptor, line);
    if (rest.empty()) {
        m_isFailing = false;
        return;
    }
    const int error = errno;
    if (rest.size() < line.size() || line.front() == '\n') {
        m_isTorn = true;
    }
    lose(error);
}

void DescriptorSink::lose(int error)
{
    ++m_lostRecords;
    if (m_isFailing.exchange(true) || m_name.empty()) {
        return;
    }
    const std::string text = "can't write to " + m_name + ": " + std::generic_category().message(error) +
                             "; what can't be written is lost\n";
    writeWhole(STDERR_FILENO, text);
}

} // namespace zyr_platform
