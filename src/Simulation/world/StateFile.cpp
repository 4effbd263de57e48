#include "StateFile.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace zyr_simulation
{

namespace
{

// Refuses a path that is there already.
bool writeNew(const char* path, std::string_view text)
{
    std::FILE* const file = std::fopen(path, "wbx");
    if (file == nullptr) {
        return false;
    }
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && isWritten;
}

} // namespace

bool writeStateFile(const std::string& folder, std::string_view name, std::string_view text)
{
    if (folder.empty() || name.empty() || name.find('/') != std::string_view::npos ||
        name.find("..") != std::string_view::npos) {
        return false;
    }
    const std::filesystem::path path = std::filesystem::path(folder) / name;
    std::filesystem::path unfinished = path;
    unfinished += ".new";
    std::error_code error;
    std::filesystem::remove(unfinished, error); // what is left of an attempt, or a link to elsewhere
    const bool isWritten = writeNew(unfinished.c_str(), text);
    if (isWritten) {
        std::filesystem::rename(unfinished, path, error);
    }
    if (!isWritten || error) {
        std::filesystem::remove(unfinished, error);
        return false;
    }
    return true;
}

} // namespace zyr_simulation
