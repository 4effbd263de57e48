#include "PrivateFile.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zyr_gateway
{

namespace
{

constexpr std::size_t kMaxFileSize = 1024UL * 1024UL;

/// An open file; closes itself.
class File
{
  public:
    explicit File(const std::string& path) : m_descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~File()
    {
        if (m_descriptor >= 0) {
            close(m_descriptor);
        }
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    [[nodiscard]] int descriptor() const { return m_descriptor; }

  private:
    int m_descriptor;
};

/// Looks at the open file, not at its path, so that nobody can change it in between.
void requirePrivate(const File& file, const std::string& name, const std::string& path)
{
    struct stat status
    {};
    if (fstat(file.descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) {
        throw FileError("the " + name + " " + path + " is not a regular file");
    }
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        throw FileError("the " + name + " " + path +
                        " can be read or written by others than its owner; run: chmod 600 " + path);
    }
}

} // namespace

std::string readPrivateFile(const std::string& path, const std::string& name)
{
    const File file(path);
    if (file.descriptor() < 0) {
        throw FileError("cannot open the " + name + " " + path + ": " + std::strerror(errno));
    }
    requirePrivate(file, name, path);
    std::string content;
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while (content.size() <= kMaxFileSize &&
           (count = read(file.descriptor(), buffer.data(), buffer.size())) > 0) {
        content.append(buffer.data(), static_cast<std::size_t>(count));
    }
    if (content.size() > kMaxFileSize) {
        throw FileError("the " + name + " " + path + " is longer than 1 MiB");
    }
    if (count < 0) {
        throw FileError("cannot read the " + name + " " + path + ": " + std::strerror(errno));
    }
    return content;
}

} // namespace zyr_gateway
