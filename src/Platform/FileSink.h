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
    /// Opens the file, which is made with mode 0640 if there is none. Writing never waits: what a pipe
    /// doesn't take at once is lost.
    /// @throws std::system_error that names the path if it can't be opened
    explicit FileSink(const std::string& path);

    /// Opens the path anew, as when the file was moved away: later records go to the file that is there then.
    /// Any thread, also while others write.
    /// @throws std::system_error that names the path if it can't be opened; the old file stays in use then
    void reopen();

  private:
    const std::string m_path;
};

} // namespace zyr_platform
