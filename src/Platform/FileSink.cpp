#include "FileSink.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>

namespace zyr_platform
{

FileSink::FileSink(const std::string& path)
    : OwnedDescriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0640)),
      DescriptorSink(OwnedDescriptor::number())
{
    if (!isOpen()) {
        throw std::system_error(errno, std::generic_category(), "can't open the trace file " + path);
    }
}

} // namespace zyr_platform
