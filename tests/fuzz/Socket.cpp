#include "Socket.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <stdexcept>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zyr_fuzz
{

namespace
{

sockaddr_in loopback(unsigned short port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int newSocket()
{
    return socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

void expect(bool holds)
{
    if (!holds) {
        throw std::runtime_error("there is no connection within this machine");
    }
}

void setPatience(int socket)
{
    const timeval patience{5, 0};
    setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
}

} // namespace

Socket::Socket(unsigned short port) : m_socket(newSocket())
{
    const sockaddr_in address = loopback(port);
    expect(connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0);
    setPatience(m_socket);
}

Socket::Socket(Descriptor descriptor) : m_socket(descriptor.number)
{
    expect(m_socket >= 0);
    setPatience(m_socket);
}

Socket::Socket() : m_socket(newSocket())
{
    const sockaddr_in address = loopback(0);
    expect(bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
           listen(m_socket, 16) == 0);
}

Socket::~Socket()
{
    close(m_socket);
}

unsigned short Socket::port() const
{
    sockaddr_in address{};
    socklen_t size = sizeof address;
    expect(getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &size) == 0);
    return ntohs(address.sin_port);
}

Socket Socket::accepted() const
{
    return Socket(Descriptor{accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC)});
}

void Socket::sendAll(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const ssize_t count = send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0) {
            return;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    shutdown(m_socket, SHUT_WR);
}

std::string Socket::read(std::string_view last, bool* hasEnded) const
{
    std::string bytes;
    std::array<char, 65536> buffer; // NOLINT(*-member-init): nobody reads more than has come
    while (last.empty() || bytes.find(last) == std::string::npos) {
        const ssize_t count = recv(m_socket, buffer.data(), buffer.size(), 0);
        if (count < 0 && errno == EINTR) { // libFuzzer's clock
            continue;
        }
        if (count <= 0) {
            if (hasEnded != nullptr) {
                *hasEnded = count == 0 || errno == ECONNRESET;
            }
            break;
        }
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return bytes;
}

} // namespace zyr_fuzz
