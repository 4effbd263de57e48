#pragma once

#include <stdexcept>
#include <string>

namespace zyr_gateway
{

/// A file that cannot be used. The text names the file and what to do; it never holds the file's content.
class FileError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// The content of a file that holds secrets. It must be a regular file that only its owner can read or write
/// (mode 0600 or less), and have 1 MiB at the most.
/// @param name what the file is called in messages, such as "credentials file"
/// @throws FileError
[[nodiscard]] std::string readPrivateFile(const std::string& path, const std::string& name);

} // namespace zyr_gateway
