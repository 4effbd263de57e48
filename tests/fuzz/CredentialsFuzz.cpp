// Files with logins: the node's, of hashes, the client's, of passwords, and the client's file of named nodes.
// They are read or refused, with texts that hold nothing of what stands in them.

#include "Credentials.h"
#include "Failure.h"
#include "Fuzz.h"
#include "Login.h"
#include "NamedNodes.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <string>
#include <string_view>

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

using zyr_fuzz::require;
using zyr_gateway::Credentials;
using zyr_gateway::CredentialsError;

namespace
{

// A file that its owner alone can read, of which no trace is left.
class PrivateFile
{
  public:
    explicit PrivateFile(std::string_view content) : m_file(memfd_create("credentials", MFD_CLOEXEC))
    {
        fchmod(m_file, S_IRUSR | S_IWUSR);
        while (!content.empty()) {
            const ssize_t count = write(m_file, content.data(), content.size());
            content.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : content.size());
        }
    }
    ~PrivateFile() { close(m_file); }
    PrivateFile(const PrivateFile&) = delete;
    PrivateFile& operator=(const PrivateFile&) = delete;
    std::string path() const { return "/proc/self/fd/" + std::to_string(m_file); }

  private:
    int m_file;
};

// All that can be said of a file, where "#" stands for any number.
const std::set<std::string> kComplaints{
    "line # of the credentials file /proc/self/fd/# is not of the form user:hash",
    "line # of the credentials file /proc/self/fd/# holds no salted hash of a strong method; make one with: "
    "mkpasswd --method=yescrypt, or openssl passwd -#",
    "line # of the credentials file /proc/self/fd/# names a user for the second time",
    "the credentials file /proc/self/fd/# names no user; add a line user:hash",
    "the credentials file /proc/self/fd/# is longer than # MiB"};

std::string withoutNumbers(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (std::isdigit(static_cast<unsigned char>(c)) == 0) {
            result += c;
        } else if (!result.ends_with('#')) {
            result += '#';
        }
    }
    return result;
}

void readOfTheNode(const std::string& path, std::string_view input)
{
    try {
        const Credentials credentials = Credentials::fromFile(path);
        require(!credentials.isRemembered("user", "pass"), "nobody has logged in yet", input);
    } catch (const CredentialsError& error) {
        require(kComplaints.contains(withoutNumbers(error.what())), "a complaint holds nothing of the file",
                input);
    }
}

void readOfTheClient(std::string_view input)
{
    const std::string content(input);
    for (const std::string user : {"", "user", "a b"}) {
        if (const auto login = zyr_ctl::loginIn(content, user)) {
            require(user.empty() || login->user == user, "the login is the user's", input);
            require(content.find(login->user + ":" + login->password) != std::string::npos,
                    "a login is a line of the file", input);
        }
    }
}

void readNodes(const std::string& path, std::string_view input)
{
    zyr_fuzz::takes<zyr_ctl::Failure>([&] {
        for (const zyr_ctl::NamedNode& node : zyr_ctl::readNodes(path)) {
            require(!node.url.empty() && node.user.find(':') == std::string::npos, "a node has a URL", input);
        }
    });
}

} // namespace

void zyr_fuzz::consume(std::string_view input)
{
    const PrivateFile file(input);
    readOfTheNode(file.path(), input);
    readOfTheClient(input);
    readNodes(file.path(), input);
}
