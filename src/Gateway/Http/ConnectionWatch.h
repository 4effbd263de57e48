#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

struct pollfd;

namespace zyr_gateway
{

/// Knows all connections and cuts those that take too long: silent for too long between two requests, too
/// slow with a request, or too slow in taking an answer. A connection whose answer is due is never cut.
///
/// Cutting shuts the socket down; whoever reads from it finds the end and closes it.
///
/// A thread of its own looks at the connections several times per deadline, and sleeps when there are none.
/// The first byte of a request is seen by the kernel's count of bytes received, because the HTTP library
/// speaks up only when a header is complete.
class ConnectionWatch
{
  public:
    using Clock = std::chrono::steady_clock;

    /// The limits in force.
    struct Limits
    {
        std::size_t maxConnections;
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
        bool excess; ///< came when there were `maxConnections` already
        Phase phase = Phase::Silent;
        Clock::time_point since = Clock::now();
        std::uint64_t consumed = 0; ///< bytes received that belong to requests already answered
        bool linger = false;
    };

    explicit ConnectionWatch(const Limits& limits);
    ~ConnectionWatch();
    ConnectionWatch(const ConnectionWatch&) = delete;
    ConnectionWatch& operator=(const ConnectionWatch&) = delete;

    /// A connection has come. The object stays valid until `closing`.
    [[nodiscard]] Connection* opened(int socket);
    /// The connection is about to be closed; its socket is still open.
    void closing(Connection* connection);

    /// The header of a request is complete.
    void receiving(Connection& connection);
    /// The request is complete and its answer is due.
    void working(Connection& connection);
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
    void sweep(Clock::time_point now);
    [[nodiscard]] bool isOverdue(Connection& connection, Clock::time_point now) const;
    void drain(Clock::time_point now);
    [[nodiscard]] std::vector<pollfd> waitList();
    [[nodiscard]] int waitTime();
    void wake() const;
    static void enter(Connection& connection, Connection::Phase phase);

    Limits m_limits;
    int m_wakeEvent;
    std::mutex m_mutex;
    bool m_ending = false;
    std::list<Connection> m_connections;
    std::vector<Lingering> m_lingering;
    std::thread m_thread;
};

} // namespace zyr_gateway
