#include "ConnectionWatch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <linux/tcp.h> // not netinet/tcp.h: its tcp_info ends before the count of bytes received
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zyr_gateway
{

namespace
{

using Phase = ConnectionWatch::Connection::Phase;

constexpr std::chrono::milliseconds kLingerTime{2000};
constexpr std::size_t kMaxLingering = 64;

std::uint64_t bytesReceived(int socket)
{
    tcp_info info{};
    socklen_t size = sizeof info;
    const int result = getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size);
    return result == 0 ? info.tcpi_bytes_received : 0;
}

/// Reads and throws away what has come, a megabyte at the most, so that a busy sender holds up nobody else.
/// False when the other side has ended, or the connection is broken.
bool discardInput(int socket)
{
    std::array<char, 16384> buffer; // NOLINT(*-member-init): nobody reads it
    for (int round = 0; round < 64; ++round) {
        const ssize_t count = recv(socket, buffer.data(), buffer.size(), MSG_DONTWAIT);
        if (count <= 0) {
            return count < 0 && (errno == EAGAIN || errno == EINTR);
        }
    }
    return true;
}

} // namespace

ConnectionWatch::ConnectionWatch(const Limits& limits)
    : m_limits(limits), m_wakeEvent(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (m_wakeEvent < 0) {
        throw std::system_error(errno, std::generic_category(), "eventfd");
    }
    m_thread = std::thread([this] { run(); });
}

ConnectionWatch::~ConnectionWatch()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    wake();
    m_thread.join();
    for (const Lingering& lingering : m_lingering) {
        close(lingering.socket);
    }
    close(m_wakeEvent);
}

ConnectionWatch::Connection* ConnectionWatch::opened(int socket)
{
    const std::lock_guard lock(m_mutex);
    const bool excess = m_connections.size() >= m_limits.maxConnections;
    Connection* connection = &m_connections.emplace_back(Connection{socket, excess});
    wake();
    return connection;
}

void ConnectionWatch::closing(Connection* connection)
{
    const std::lock_guard lock(m_mutex);
    if (connection->linger && m_lingering.size() < kMaxLingering) {
        // A second descriptor keeps the connection when the first is closed.
        const int socket = fcntl(connection->socket, F_DUPFD_CLOEXEC, 0);
        if (socket >= 0) {
            shutdown(socket, SHUT_WR);
            m_lingering.push_back({socket, Clock::now() + kLingerTime});
            wake();
        }
    }
    m_connections.remove_if([&](const Connection& candidate) { return &candidate == connection; });
}

void ConnectionWatch::receiving(Connection& connection)
{
    const std::lock_guard lock(m_mutex);
    if (connection.phase == Phase::Silent) {
        enter(connection, Phase::Receiving);
    }
}

void ConnectionWatch::working(Connection& connection)
{
    const std::lock_guard lock(m_mutex);
    enter(connection, Phase::Working);
}

void ConnectionWatch::answering(Connection& connection)
{
    const std::lock_guard lock(m_mutex);
    enter(connection, Phase::Answering);
}

void ConnectionWatch::answered(Connection& connection, std::size_t requestSize)
{
    const std::lock_guard lock(m_mutex);
    connection.consumed =
        m_limits.encrypted ? bytesReceived(connection.socket) : connection.consumed + requestSize;
    enter(connection, Phase::Silent);
}

void ConnectionWatch::lingerAfter(Connection& connection)
{
    const std::lock_guard lock(m_mutex);
    connection.linger = !m_limits.encrypted;
}

void ConnectionWatch::enter(Connection& connection, Phase phase)
{
    if (connection.phase != Phase::Cut) {
        connection.phase = phase;
        connection.since = Clock::now();
    }
}

void ConnectionWatch::run()
{
    std::vector<pollfd> list = waitList();
    while (poll(list.data(), list.size(), waitTime()) >= 0 || errno == EINTR) {
        std::uint64_t count = 0;
        (void)!read(m_wakeEvent, &count, sizeof count);
        const std::lock_guard lock(m_mutex);
        if (m_ending) {
            return;
        }
        const Clock::time_point now = Clock::now();
        sweep(now);
        drain(now);
        list = waitList();
    }
}

/// To be called under the lock, or before the thread has company.
std::vector<pollfd> ConnectionWatch::waitList()
{
    std::vector<pollfd> list{{m_wakeEvent, POLLIN, 0}};
    for (const Lingering& lingering : m_lingering) {
        list.push_back({lingering.socket, POLLIN, 0});
    }
    return list;
}

/// How long to sleep, in milliseconds: an eighth of the shorter limit, for ever when there is nothing to
/// watch.
int ConnectionWatch::waitTime()
{
    const std::lock_guard lock(m_mutex);
    if (m_connections.empty() && m_lingering.empty()) {
        return -1;
    }
    const auto shorter = std::min(m_limits.requestDeadline, m_limits.idleTimeout).count();
    return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(shorter / 8, 5, 250));
}

void ConnectionWatch::sweep(Clock::time_point now)
{
    for (Connection& connection : m_connections) {
        if (isOverdue(connection, now)) {
            shutdown(connection.socket, SHUT_RDWR);
            connection.phase = Phase::Cut;
        }
    }
}

bool ConnectionWatch::isOverdue(Connection& connection, Clock::time_point now) const
{
    if (connection.phase == Phase::Silent && bytesReceived(connection.socket) > connection.consumed) {
        connection.phase = Phase::Receiving;
        connection.since = now;
    }
    switch (connection.phase) {
    case Phase::Silent:
        return now - connection.since > m_limits.idleTimeout;
    case Phase::Receiving:
    case Phase::Answering:
        return now - connection.since > m_limits.requestDeadline;
    default:
        return false;
    }
}

void ConnectionWatch::drain(Clock::time_point now)
{
    const auto done = [&](const Lingering& lingering) {
        const bool over = !discardInput(lingering.socket) || now >= lingering.until;
        if (over) {
            close(lingering.socket);
        }
        return over;
    };
    m_lingering.erase(std::remove_if(m_lingering.begin(), m_lingering.end(), done), m_lingering.end());
}

void ConnectionWatch::wake() const
{
    const std::uint64_t one = 1;
    (void)!write(m_wakeEvent, &one, sizeof one);
}

} // namespace zyr_gateway
