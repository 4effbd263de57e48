// Bytes of a connection, to the whole server with its commands. In the place of each "Content-Length: *"
// stands the length of what follows the head, so that a changed body still is one. Each answer must be one of
// those that the server is known to give, what is no refusal an XML-RPC answer, and the connection must end.

#include "Codec.h"
#include "Credentials.h"
#include "Fuzz.h"
#include "HttpServer.h"
#include "ServedNode.h"
#include "Socket.h"

#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

using zyr_fuzz::require;

namespace
{

const std::set<std::string_view> kStatuses{"100", "200", "400", "401", "403", "404", "405",
                                           "411", "413", "414", "415", "431", "503", "505"};

zyr_gateway::HttpOptions options()
{
    zyr_gateway::HttpOptions options;
    options.requestDeadline = std::chrono::milliseconds(500);
    options.idleTimeout = std::chrono::milliseconds(500);
    return options;
}

// A file of which no trace is left: "user" with the password "pass", by a method that is soon computed.
zyr_gateway::Credentials credentials()
{
    constexpr std::string_view line = "user:$6$rounds=1000$salt$NqhXojlgP5NLvJojBnjQ"
                                      "D87i66jhb8s3bZord3hSZoIgbCJqUfJdp7pclsLBBqgn02fAtd/vn4lieLeX5J.h90\n";
    const int file = memfd_create("credentials", MFD_CLOEXEC);
    fchmod(file, S_IRUSR | S_IWUSR);
    (void)!write(file, line.data(), line.size());
    auto read = zyr_gateway::Credentials::fromFile("/proc/self/fd/" + std::to_string(file));
    close(file);
    return read;
}

// Asks for a login, and knows no commands.
std::uint16_t portBehindLogin()
{
    const auto answerNothing = [](const zyr_gateway::HttpRequest& request,
                                  const zyr_gateway::HttpServer::Answer& answer) {
        require(request.user == "user", "nobody else gets through", request.body);
        answer({.body = zyr_gateway::writeResponse(request.body.size())});
    };
    static zyr_gateway::HttpServer server(
        [] {
            auto locked = options();
            locked.credentials.emplace(credentials());
            return locked;
        }(),
        answerNothing);
    if (server.port() == 0) {
        server.start();
    }
    return server.port();
}

std::string withLength(std::string_view input)
{
    constexpr std::string_view mark = "Content-Length: *";
    std::string bytes(input);
    const std::size_t end = bytes.find("\r\n\r\n");
    const std::size_t at = bytes.find(mark);
    if (end != std::string::npos && at < end) {
        bytes.replace(at + mark.size() - 1, 1, std::to_string(bytes.size() - end - 4));
    }
    return bytes;
}

// Takes an answer off the text.
void checkAnswer(std::string_view& answers, std::string_view input)
{
    constexpr std::string_view version = "HTTP/1.1 ";
    const std::size_t end = answers.find("\r\n\r\n");
    require(answers.starts_with(version) && end != answers.npos, "an answer has a head", input);
    const std::string_view head = answers.substr(0, end);
    const std::string_view status = head.substr(version.size(), 3);
    require(kStatuses.contains(status), "the status is a known one", input);
    answers.remove_prefix(end + 4);
    // libmicrohttpd 0.9.75 puts two heads before its own refusals of a Content-Length.
    answers.remove_prefix(answers.starts_with(head) ? end + 4 : 0);
    constexpr std::string_view name = "\r\nContent-Length: ";
    const std::size_t field = head.find(name);
    require((field == head.npos) == (status == "100"), "an answer has a length", input);
    std::size_t length = 0;
    if (field != head.npos) {
        std::from_chars(head.data() + field + name.size(), head.data() + head.size(), length);
    }
    require(length <= answers.size(), "an answer is whole", input);
    if (status == "200") {
        (void)zyr_gateway::parseMethodResponse(answers.substr(0, length));
    }
    answers.remove_prefix(length);
}

} // namespace

void zyr_fuzz::consume(std::string_view input)
{
    static const ServedNode node(options());
    const bool isLogin = input.find("Authorization") != std::string_view::npos;
    const Socket connection(isLogin ? portBehindLogin() : node.port());
    connection.sendAll(withLength(input));
    bool hasEnded = false;
    const std::string bytes = connection.read({}, &hasEnded);
    require(hasEnded, "the connection ends", input);
    for (std::string_view answers = bytes; !answers.empty();) {
        checkAnswer(answers, input);
    }
}
