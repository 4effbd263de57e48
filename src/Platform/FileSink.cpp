#include "FileSink.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>

namespace zyr_platform
{

namespace
{

OwnedDescriptor opened(const std::string& path)
{
    OwnedDescriptor file(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0640));
    if (!file.isOpen()) {
        throw std::system_error(errno, std::generic_category(), "can't open the trace file " + path);
    }
    return file;
}

} // namespace

FileSink::FileSink(const std::string& path)
    : OwnedDescriptor(opened(path)), DescriptorSink(OwnedDescriptor::number(), "the trace file " + path),
      m_path(path)
{}

void FileSink::reopen()
{
    const OwnedDescriptor file = opened(m_path);
    // Under the old number, so that those who are writing need no lock.
    if (::dup3(file.number(), OwnedDescriptor::number(), O_CLOEXEC) < 0) {
        throw std::system_error(errno, std::generic_category(), "can't open the trace file " + m_path);
    }
}

} // namespace zyr_platform
