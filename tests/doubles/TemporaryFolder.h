#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

/// An empty folder that goes with the test.
class TemporaryFolder
{
  public:
    TemporaryFolder()
    {
        std::string path = (std::filesystem::temp_directory_path() / "zyr-platform-XXXXXX").string();
        if (::mkdtemp(path.data()) == nullptr) {
            throw std::runtime_error("can't make a temporary folder");
        }
        m_path = path;
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string path(const std::string& name) const { return (m_path / name).string(); }

  private:
    std::filesystem::path m_path;
};

/// The whole content of a file; empty if there is none.
inline std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
