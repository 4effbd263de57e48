// How fast the node answers a small command, measured against what an HTTP server can do at best on the same
// machine: a libmicrohttpd echo, bare, and one that also parses with expat. All are loaded in turns, several
// times, and the best turn of each counts, so that what else the machine does falls on all of them alike.

#include "HttpEcho.h"
#include "HttpLoad.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr std::chrono::milliseconds kTurn{600};
constexpr int kTurns = 5;

// The commands, as a stock client sends them: one that only tells, and one that changes the node and leaves a
// line in the trace.
struct Command
{
    const char* name;
    std::string body;
};

const std::string kBegin = "<?xml version='1.0'?>\n<methodCall>\n<methodName>";
const std::array<Command, 2> kCommands{{
    {"CI.GetEvents", kBegin + "CI.GetEvents</methodName>\n<params>\n</params>\n</methodCall>\n"},
    {"CRI.EnableAcm",
     kBegin +
         "CRI.EnableAcm</methodName>\n<params>\n<param>\n<value><struct>\n<member>\n<name>channelId</name>\n"
         "<value><int>1</int></value>\n</member>\n<member>\n<name>enable</name>\n<value><boolean>1</boolean>"
         "</value>\n</member>\n</struct></value>\n</param>\n</params>\n</methodCall>\n"},
}};

// A node in a process of its own.
class Node
{
  public:
    explicit Node(const char* program)
    {
        std::array<int, 2> output{};
        if (pipe(output.data()) != 0) {
            throw std::runtime_error("no pipe");
        }
        m_process = fork();
        if (m_process == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            dup2(output[1], STDOUT_FILENO);
            execl(program, program, "--listen", "127.0.0.1:0", "--trace-to", "/dev/null", nullptr);
            _exit(127);
        }
        close(output[1]);
        std::array<char, 256> line{};
        const ssize_t size = read(output[0], line.data(), line.size() - 1);
        const std::string text(line.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
        const std::size_t colon = text.rfind(':');
        if (colon == std::string::npos) {
            throw std::runtime_error(std::string("cannot start ") + program);
        }
        m_port = static_cast<std::uint16_t>(std::stoul(text.substr(colon + 1)));
    }
    ~Node()
    {
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
    }
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    [[nodiscard]] std::uint16_t port() const { return m_port; }

  private:
    int m_process = -1;
    std::uint16_t m_port = 0;
};

void keepBetter(LoadResult& best, LoadResult turn)
{
    if (turn.requestsPerSecond > best.requestsPerSecond) {
        best = std::move(turn);
    }
}

void print(const char* name, const LoadResult& result, const std::string& more = {})
{
    std::printf("  %-14s %9.0f /s   p50 %7.0f us   p99 %7.0f us%s\n", name, result.requestsPerSecond,
                result.quantile(0.5), result.quantile(0.99), more.c_str());
}

std::string ratio(const LoadResult& node, const LoadResult& echo)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f", node.requestsPerSecond / echo.requestsPerSecond);
    return text.data();
}

struct Ports
{
    std::uint16_t bareEcho;
    std::uint16_t parsingEcho;
    std::uint16_t node;
};

void compare(const Command& command, unsigned clients, const Ports& ports)
{
    LoadResult bare;
    LoadResult parsing;
    LoadResult ours;
    for (int turn = 0; turn < kTurns; ++turn) {
        keepBetter(bare, load(ports.bareEcho, clients, command.body, kTurn));
        keepBetter(parsing, load(ports.parsingEcho, clients, command.body, kTurn));
        keepBetter(ours, load(ports.node, clients, command.body, kTurn));
    }
    std::printf("%s, %u keep-alive client%s\n", command.name, clients, clients == 1 ? "" : "s");
    print("bare echo", bare);
    print("parsing echo", parsing);
    print("zyrnode", ours,
          "   " + ratio(ours, bare) + " of the bare echo, " + ratio(ours, parsing) + " of the parsing one");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s ZYRNODE\n", argv[0]);
        return 2;
    }
    try {
        const HttpEcho bareEcho(false);
        const HttpEcho parsingEcho(true);
        const Node node(argv[1]);
        for (const Command& command : kCommands) {
            for (const unsigned clients : {1U, 8U, 64U}) {
                compare(command, clients, {bareEcho.port(), parsingEcho.port(), node.port()});
            }
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
