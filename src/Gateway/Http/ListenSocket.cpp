#include "ListenSocket.h"

#include "HttpServer.h"

#include <cerrno>
#include <cstring>
#include <memory>

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zyr_gateway
{

namespace
{

constexpr int kBacklog = 128;

using AddressList = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

/// The socket address behind the text; empty when it is none. Asks no name server.
AddressList resolved(const std::string& address, std::uint16_t port)
{
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV | AI_PASSIVE;
    const std::string& numeric = address == "localhost" ? std::string("127.0.0.1") : address;
    addrinfo* list = nullptr;
    if (getaddrinfo(numeric.c_str(), std::to_string(port).c_str(), &hints, &list) != 0) {
        list = nullptr;
    }
    return {list, &freeaddrinfo};
}

std::uint16_t portOf(int descriptor)
{
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    if (getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        return 0;
    }
    return ntohs(address.ss_family == AF_INET6 ? reinterpret_cast<const sockaddr_in6&>(address).sin6_port
                                               : reinterpret_cast<const sockaddr_in&>(address).sin_port);
}

} // namespace

ListenSocket::ListenSocket(const std::string& address, std::uint16_t port)
{
    const AddressList target = resolved(address, port);
    if (!target) {
        throw HttpServerError("cannot listen on " + address + ": not a numeric address");
    }
    const int on = 1;
    m_descriptor = socket(target->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const bool listening =
        m_descriptor >= 0 && setsockopt(m_descriptor, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) == 0 &&
        bind(m_descriptor, target->ai_addr, target->ai_addrlen) == 0 && listen(m_descriptor, kBacklog) == 0;
    if (!listening) {
        const std::string reason = std::strerror(errno);
        if (m_descriptor >= 0) {
            close(m_descriptor);
        }
        throw HttpServerError("cannot listen on " + address + " port " + std::to_string(port) + ": " +
                              reason);
    }
    m_port = portOf(m_descriptor);
}

ListenSocket::~ListenSocket()
{
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
}

void ListenSocket::refuse() const noexcept
{
    shutdown(m_descriptor, SHUT_RDWR);
}

bool isListenAddress(const std::string& address)
{
    return resolved(address, 0) != nullptr;
}

} // namespace zyr_gateway
