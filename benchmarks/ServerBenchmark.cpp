// How fast the node answers a small command, measured against what an HTTP server can do at best on the same
// machine: a libmicrohttpd echo, bare, and one that also parses with pugixml. All are loaded in turns,
// several times, and the best turn of each counts, so that what else the machine does falls on all of them
// alike.

#include "HttpEcho.h"
#include "HttpLoad.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <ctime>
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
    [[nodiscard]] int process() const { return m_process; }

  private:
    int m_process = -1;
    std::uint16_t m_port = 0;
};

struct Server
{
    const char* name;
    std::uint16_t port;
    int process;
};

// What a server did in its best turn, and the processor time that it took for a request in all turns.
struct Outcome
{
    LoadResult best;
    double microseconds = 0;
    double requests = 0;
};

double processorTime(int process)
{
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) {
        throw std::runtime_error("no processor time");
    }
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

void takeTurn(const Server& server, const Command& command, unsigned clients, Outcome& outcome)
{
    const double before = processorTime(server.process);
    LoadResult turn = load(server.port, clients, command.body, kTurn);
    outcome.microseconds += processorTime(server.process) - before;
    outcome.requests += static_cast<double>(turn.nanoseconds.size());
    if (turn.requestsPerSecond > outcome.best.requestsPerSecond) {
        outcome.best = std::move(turn);
    }
}

void print(const char* name, const Outcome& outcome, const std::string& more = {})
{
    std::printf("  %-14s %9.0f /s   p50 %7.0f us   p99 %7.0f us   processor %5.1f us%s\n", name,
                outcome.best.requestsPerSecond, outcome.best.quantile(0.5), outcome.best.quantile(0.99),
                outcome.microseconds / outcome.requests, more.c_str());
}

std::string ratio(const Outcome& node, const Outcome& echo)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f",
                  node.best.requestsPerSecond / echo.best.requestsPerSecond);
    return text.data();
}

void compare(const Command& command, unsigned clients, const std::array<Server, 3>& servers)
{
    std::array<Outcome, 3> outcomes;
    for (int turn = 0; turn < kTurns; ++turn) {
        for (std::size_t index = 0; index < servers.size(); ++index) {
            takeTurn(servers[index], command, clients, outcomes[index]);
        }
    }
    std::printf("%s, %u keep-alive client%s\n", command.name, clients, clients == 1 ? "" : "s");
    const auto& [bare, parsing, node] = outcomes;
    print(servers[0].name, bare);
    print(servers[1].name, parsing);
    print(servers[2].name, node,
          "   " + ratio(node, bare) + " of the bare echo, " + ratio(node, parsing) + " of the parsing one");
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
        const std::array<Server, 3> servers{{{"bare echo", bareEcho.port(), bareEcho.process()},
                                             {"parsing echo", parsingEcho.port(), parsingEcho.process()},
                                             {"zyrnode", node.port(), node.process()}}};
        for (const Command& command : kCommands) {
            for (const unsigned clients : {1U, 8U, 64U}) {
                compare(command, clients, servers);
            }
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
