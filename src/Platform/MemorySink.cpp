#include "MemorySink.h"

#include <utility>

namespace zyr_platform
{

void MemorySink::write(const TraceRecord& record)
{
    Kept kept{std::string(record.channel), record.level,    record.header,
              std::string(record.text),    record.threadId, record.time};
    const std::scoped_lock lock(m_mutex);
    m_records.push_back(std::move(kept));
}

std::vector<MemorySink::Kept> MemorySink::records() const
{
    const std::scoped_lock lock(m_mutex);
    return m_records;
}

std::vector<MemorySink::Kept> MemorySink::take()
{
    const std::scoped_lock lock(m_mutex);
    return std::exchange(m_records, {});
}

} // namespace zyr_platform
