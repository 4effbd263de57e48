#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace zyr_gateway
{

class Exchange;

/// Knows all connections. It cuts those that take too long: silent for too long between two requests, too
/// slow with a request, or too slow in taking an answer. Those whose other side has ended in the middle of a
/// request are found out as well. When there are too many, it cuts the one that has been idle longest. It
/// tells an exchange whose client leaves. A connection whose answer is due is never cut.
///
/// Cutting shuts the socket down; whoever reads from it finds the end and closes it.
///
/// A thread of its own is woken when the other side of a connection ends, looks at all connections several
/// times per deadline, and sleeps when there are none. The first byte of a request is seen by the kernel's
/// count of bytes received, because the HTTP library speaks up only when a line is complete.
class ConnectionWatch
{
  public:
    using Clock = std::chrono::steady_clock;

    /// The limits in force.
    struct Limits
    {
        /// More are `excess`. Those that wait for an answer while their other side has ended don't count.
        std::size_t maxConnections;
        std::size_t maxExcess; ///< for one more, the one goes that has been here longest
        std::chrono::milliseconds requestDeadline;
        std::chrono::milliseconds idleTimeout;
        bool encrypted; ///< bytes on the wire are then not those of the requests
    };

    /// One connection. Its owner passes it back and knows nothing about its inside.
    struct Connection
    {
        /// What the connection is doing, and so which limit holds.
        enum class Phase
        {
            Silent,
            Receiving,
            Working,
            Answering,
            Cut
        };

        int socket;
        std::uint64_t serial;
        bool excess = false; ///< has found no place
        Phase phase = Phase::Silent;
        Clock::time_point since = Clock::now();
        std::uint64_t consumed = 0; ///< bytes received that belong to requests already answered
        bool linger = false;
        bool hasEnded = false;                ///< the other side sends nothing more
        bool isEndShown = false;              ///< whoever reads has been woken for that
        std::shared_ptr<Exchange> exchange{}; ///< while it is working
    };

    explicit ConnectionWatch(const Limits& limits);
    ~ConnectionWatch();
    ConnectionWatch(const ConnectionWatch&) = delete;
    ConnectionWatch& operator=(const ConnectionWatch&) = delete;

    /// A connection has come. The object stays valid until `closing`.
    [[nodiscard]] Connection* opened(int socket);
    /// The connection is about to be closed; its socket is still open.
    void closing(Connection* connection);

    /// A request has begun.
    void receiving(Connection& connection);
    /// Whether the connection came when there were `maxConnections` already, none of them idle, and still
    /// finds no place.
    [[nodiscard]] bool isExcess(Connection& connection);
    /// The request is complete and its answer is due.
    void working(Connection& connection, const std::shared_ptr<Exchange>& exchange);
    /// The answer has been handed out for sending.
    void answering(Connection& connection);
    /// The answer has been sent, and the next request may begin.
    void answered(Connection& connection, std::size_t requestSize);

    /// The connection is going to be closed while its client may still be sending. What comes is then read
    /// and thrown away for a while, otherwise the client's system could discard the answer unread.
    void lingerAfter(Connection& connection);

  private:
    struct Lingering
    {
        int socket;
        Clock::time_point until;
    };

    void run();
    void ended(std::uint64_t serial);
    void sweep(Clock::time_point now);
    [[nodiscard]] bool isOverdue(Connection& connection, Clock::time_point now) const;
    [[nodiscard]] bool isIdle(const Connection& connection) const;
    [[nodiscard]] static bool isCutShort(const Connection& connection);
    [[nodiscard]] std::size_t count() const;
    [[nodiscard]] std::size_t countAfresh() const;
    void makeRoom(Connection& newcomer);
    [[nodiscard]] Connection& longestExcess(Connection& newcomer);
    static void cut(Connection& connection);
    void drain(Clock::time_point now);
    [[nodiscard]] int waitTime();
    void wake() const;
    static void enter(Connection& connection, Connection::Phase phase);

    Limits m_limits;
    int m_wakeEvent;
    int m_epoll;
    std::mutex m_mutex;
    bool m_ending = false;
    std::uint64_t m_lastSerial = 0;
    std::list<Connection> m_connections;
    std::vector<Lingering> m_lingering;
    std::thread m_thread;
};

} // namespace zyr_gateway
