#include "Login.h"

#include "Failure.h"
#include "Text.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zyr_ctl
{

namespace
{

using std::filesystem::perms;

Login loginFrom(const std::string& path, const std::string& user)
{
    if (const auto login = loginIn(contentOfPrivateFile("credentials file", path), user)) {
        return *login;
    }
    throw usageFailure("the credentials file " + path + " has no line of the form " +
                       (user.empty() ? "user:password" : user + ":password"));
}

} // namespace

std::string contentOfPrivateFile(const std::string& what, const std::string& path)
{
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (error || !std::filesystem::is_regular_file(status)) {
        throw usageFailure("the " + what + " " + path + " is not a regular file that can be read");
    }
    if ((status.permissions() & (perms::group_all | perms::others_all)) != perms::none) {
        throw usageFailure("the " + what + " " + path +
                           " can be read or written by others than its owner; run: chmod 600 " + path);
    }
    std::ifstream file(path);
    if (!file) {
        throw usageFailure("cannot read the " + what + " " + path);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

std::optional<Login> loginIn(const std::string& content, const std::string& user)
{
    for (std::string& line : linesOf(content)) {
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        const std::size_t colon = line.find(':');
        if (line.starts_with('#') || colon == std::string::npos) {
            continue;
        }
        if (user.empty() || line.substr(0, colon) == user) {
            return Login{line.substr(0, colon), line.substr(colon + 1)};
        }
    }
    return std::nullopt;
}

std::optional<Login> findLogin(const std::string& user, const std::string& file, Console& console)
{
    const std::size_t colon = user.find(':');
    if (colon != std::string::npos) {
        return Login{user.substr(0, colon), user.substr(colon + 1)};
    }
    if (!file.empty()) {
        return loginFrom(file, user);
    }
    if (user.empty()) {
        return std::nullopt;
    }
    if (!console.canAsk()) {
        throw usageFailure("the password of " + user +
                           " is missing and there is no terminal to ask on; give --credentials FILE");
    }
    return Login{user, console.askSecretly("Password of " + user + ":")};
}

} // namespace zyr_ctl
