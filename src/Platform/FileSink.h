#pragma once

#include "DescriptorSink.h"
#include "OwnedDescriptor.h"

#include <string>

namespace zyr_platform
{

/// Appends records to a file.
class FileSink : private OwnedDescriptor, public DescriptorSink
{
  public:
    /// Opens the file, which is made with mode 0640 if there is none.
    /// @throws std::system_error that names the path if it can't be opened
    explicit FileSink(const std::string& path);
};

} // namespace zyr_platform
