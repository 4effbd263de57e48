#include "ConnectionWatch.h"

#include "Exchange.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <linux/tcp.h> // not netinet/tcp.h: its tcp_info ends before the count of bytes received
#include <netinet/in.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zyr_gateway
{

namespace
{

using Phase = ConnectionWatch::Connection::Phase;

constexpr std::chrono::milliseconds kLingerTime{2000};
constexpr std::size_t kMaxLingering = 64;
/// How long what a connection has brought before its end may stay unread.
constexpr std::chrono::milliseconds kEndGrace{20};
/// Serials of connections are greater than 0; what wakes the thread for another reason has this one.
constexpr std::uint64_t kNoConnection = 0;

tcp_info infoOf(int socket)
{
    tcp_info info{};
    socklen_t size = sizeof info;
    getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size); // which leaves zeros if it cannot tell
    return info;
}

std::uint64_t bytesReceived(int socket)
{
    return infoOf(socket).tcpi_bytes_received;
}

/// Whether the other side has ended its half of the connection.
bool isClosing(int socket)
{
    constexpr std::uint8_t established = 1; // TCP_ESTABLISHED, which is in the other header
    return infoOf(socket).tcpi_state != established;
}

bool hasUnreadInput(int socket)
{
    int count = 0;
    return ioctl(socket, FIONREAD, &count) == 0 && count > 0;
}

void watchFor(int epoll, std::uint32_t events, int socket, std::uint64_t serial)
{
    epoll_event event{events, {.u64 = serial}};
    if (epoll_ctl(epoll, EPOLL_CTL_ADD, socket, &event) != 0) {
        throw std::system_error(errno, std::generic_category(), "epoll_ctl");
    }
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
    : m_limits(limits), m_wakeEvent(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      m_epoll(epoll_create1(EPOLL_CLOEXEC))
{
    if (m_wakeEvent < 0 || m_epoll < 0) {
        throw std::system_error(errno, std::generic_category(), "eventfd");
    }
    m_lingering.reserve(kMaxLingering);
    watchFor(m_epoll, EPOLLIN, m_wakeEvent, kNoConnection);
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
    close(m_epoll);
    close(m_wakeEvent);
}

ConnectionWatch::Connection* ConnectionWatch::opened(int socket)
{
    const std::lock_guard lock(m_mutex);
    const bool isFirst = m_connections.empty();
    Connection& connection =
        m_connections.emplace_back(Connection{.socket = socket, .serial = ++m_lastSerial});
    try {
        watchFor(m_epoll, EPOLLRDHUP | EPOLLET, socket, connection.serial);
    } catch (const std::system_error&) {
        cut(connection);
    }
    makeRoom(connection);
    if (isFirst) {
        wake();
    }
    return &connection;
}

void ConnectionWatch::closing(Connection* connection)
{
    const std::lock_guard lock(m_mutex);
    epoll_ctl(m_epoll, EPOLL_CTL_DEL, connection->socket, nullptr);
    if (connection->linger && m_lingering.size() < kMaxLingering) {
        // A second descriptor keeps the connection when the first is closed.
        const int socket = fcntl(connection->socket, F_DUPFD_CLOEXEC, 0);
        if (socket >= 0) {
            shutdown(socket, SHUT_WR);
            epoll_event event{EPOLLIN, {.u64 = kNoConnection}};
            epoll_ctl(m_epoll, EPOLL_CTL_ADD, socket, &event);
            m_lingering.push_back({socket, Clock::now() + kLingerTime});
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

bool ConnectionWatch::isExcess(Connection& connection)
{
    const std::lock_guard lock(m_mutex);
    if (connection.excess) {
        connection.excess = false;
        makeRoom(connection);
    }
    return connection.excess;
}

void ConnectionWatch::working(Connection& connection, const std::shared_ptr<Exchange>& exchange)
{
    bool hasEnded = false;
    {
        const std::lock_guard lock(m_mutex);
        enter(connection, Phase::Working);
        connection.exchange = exchange;
        hasEnded = connection.hasEnded;
    }
    if (hasEnded) {
        exchange->clientHasLeft();
    }
}

void ConnectionWatch::answering(Connection& connection)
{
    const std::lock_guard lock(m_mutex);
    enter(connection, Phase::Answering);
    connection.exchange.reset();
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
    std::array<epoll_event, 64> events{};
    while (true) {
        const int count = epoll_wait(m_epoll, events.data(), events.size(), waitTime());
        if (count < 0 && errno != EINTR) {
            return;
        }
        std::uint64_t wakes = 0;
        (void)!read(m_wakeEvent, &wakes, sizeof wakes);
        for (int index = 0; index < count; ++index) {
            ended(events[static_cast<std::size_t>(index)].data.u64);
        }
        const std::lock_guard lock(m_mutex);
        if (m_ending) {
            return;
        }
        const Clock::time_point now = Clock::now();
        sweep(now);
        drain(now);
    }
}

/// The other side of the connection sends nothing more, or is gone.
void ConnectionWatch::ended(std::uint64_t serial)
{
    std::shared_ptr<Exchange> exchange;
    {
        const std::lock_guard lock(m_mutex);
        const auto connection = std::ranges::find(m_connections, serial, &Connection::serial);
        if (connection == m_connections.end()) {
            return;
        }
        connection->hasEnded = true;
        exchange = connection->exchange;
    }
    if (exchange) {
        exchange->clientHasLeft();
    }
}

/// How long to sleep, in milliseconds: an eighth of the shorter limit, less when an end waits for its grace,
/// for ever when there is nothing to watch.
int ConnectionWatch::waitTime()
{
    const std::lock_guard lock(m_mutex);
    if (m_connections.empty() && m_lingering.empty()) {
        return -1;
    }
    const bool hasEnds = std::ranges::any_of(m_connections, [](const Connection& connection) {
        return connection.hasEnded && !connection.isEndShown &&
               (connection.phase == Phase::Silent || connection.phase == Phase::Receiving);
    });
    if (hasEnds) {
        return static_cast<int>(kEndGrace.count());
    }
    const auto shorter = std::min(m_limits.requestDeadline, m_limits.idleTimeout).count();
    return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(shorter / 8, 5, 250));
}

void ConnectionWatch::sweep(Clock::time_point now)
{
    for (Connection& connection : m_connections) {
        if (isOverdue(connection, now)) {
            cut(connection);
        } else if (!connection.isEndShown && isCutShort(connection) && now - connection.since > kEndGrace) {
            // Whoever reads from it finds the end. One whose request is being answered after all, which may
            // not show yet, gets that answer.
            shutdown(connection.socket, SHUT_RD);
            connection.isEndShown = true;
        }
    }
}

void ConnectionWatch::cut(Connection& connection)
{
    shutdown(connection.socket, SHUT_RDWR);
    connection.phase = Phase::Cut;
}

/// Whether nothing is to be expected from the connection before its next request, or ever.
bool ConnectionWatch::isIdle(const Connection& connection) const
{
    const bool hasNothingOfARequest =
        connection.phase == Phase::Silent &&
        (m_limits.encrypted || bytesReceived(connection.socket) <= connection.consumed);
    return hasNothingOfARequest || isCutShort(connection);
}

/// Whether the other side has ended in the middle of a request, as far as can be seen at the moment; the
/// thread may not have been told of the end yet.
bool ConnectionWatch::isCutShort(const Connection& connection)
{
    const bool isDue = connection.phase == Phase::Silent || connection.phase == Phase::Receiving;
    return isDue && (connection.hasEnded || isClosing(connection.socket)) &&
           !hasUnreadInput(connection.socket);
}

/// The connections that count for the limit.
std::size_t ConnectionWatch::count() const
{
    return static_cast<std::size_t>(std::ranges::count_if(m_connections, [](const Connection& connection) {
        const bool waitsAfterItsEnd = connection.phase == Phase::Working && connection.hasEnded;
        return connection.phase != Phase::Cut && !waitsAfterItsEnd;
    }));
}

/// The connections that count for the limit now; the thread may not have been told of an end yet.
std::size_t ConnectionWatch::countAfresh() const
{
    const auto hasJustEnded =
        static_cast<std::size_t>(std::ranges::count_if(m_connections, [](const Connection& connection) {
            return connection.phase == Phase::Working && !connection.hasEnded && isClosing(connection.socket);
        }));
    return count() - hasJustEnded;
}

void ConnectionWatch::makeRoom(Connection& newcomer)
{
    if (count() <= m_limits.maxConnections) {
        return;
    }
    const std::size_t counted = countAfresh();
    if (counted <= m_limits.maxConnections) {
        return;
    }
    Connection* longestIdle = nullptr;
    for (Connection& candidate : m_connections) {
        const bool isOlder = longestIdle == nullptr || candidate.since < longestIdle->since;
        if (&candidate != &newcomer && isOlder && isIdle(candidate)) {
            longestIdle = &candidate;
        }
    }
    if (longestIdle != nullptr) {
        newcomer.excess = longestIdle->excess;
        cut(*longestIdle);
        return;
    }
    newcomer.excess = true;
    if (counted > m_limits.maxConnections + m_limits.maxExcess) {
        cut(longestExcess(newcomer));
    }
}

/// The one that has been in excess longest, so that the newcomer can be told why it is refused.
ConnectionWatch::Connection& ConnectionWatch::longestExcess(Connection& newcomer)
{
    const auto found = std::ranges::find_if(
        m_connections, [](const Connection& each) { return each.excess && each.phase != Phase::Cut; });
    return found == m_connections.end() ? newcomer : *found;
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
