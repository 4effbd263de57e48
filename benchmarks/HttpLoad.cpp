#include "HttpLoad.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace
{

using Clock = std::chrono::steady_clock;

struct Client
{
    int socket = -1;
    std::string answer;
    Clock::time_point sentAt;
};

int connected(std::uint16_t port)
{
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int on = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    if (connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        throw std::runtime_error("cannot connect");
    }
    return socket;
}

// Whether the answer is whole.
bool isWhole(const std::string& answer)
{
    const std::size_t end = answer.find("\r\n\r\n");
    if (end == std::string::npos) {
        return false;
    }
    if (!answer.starts_with("HTTP/1.1 200 ") || answer.find("<fault>") != std::string::npos) {
        throw std::runtime_error("answered with " + answer);
    }
    const std::size_t field = answer.find("Content-Length: ");
    return answer.size() >= end + 4 + std::stoul(answer.substr(field + 16));
}

void send(Client& client, const std::string& request)
{
    client.answer.clear();
    client.sentAt = Clock::now();
    if (::send(client.socket, request.data(), request.size(), MSG_NOSIGNAL) !=
        static_cast<ssize_t>(request.size())) {
        throw std::runtime_error("cannot send");
    }
}

} // namespace

double LoadResult::quantile(double share) const
{
    const auto last = static_cast<double>(nanoseconds.size() - 1);
    return nanoseconds[static_cast<std::size_t>(share * last)] / 1000.0;
}

LoadResult load(std::uint16_t port, unsigned clients, const std::string& body, std::chrono::milliseconds time)
{
    const std::string request = "POST /RPC2 HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(port) +
                                "\r\nUser-Agent: benchmark\r\nContent-Type: text/xml\r\nContent-Length: " +
                                std::to_string(body.size()) + "\r\n\r\n" + body;
    const int epoll = epoll_create1(EPOLL_CLOEXEC);
    std::vector<Client> all(clients);
    for (unsigned index = 0; index < clients; ++index) {
        all[index].socket = connected(port);
        epoll_event event{EPOLLIN, {.u32 = index}};
        epoll_ctl(epoll, EPOLL_CTL_ADD, all[index].socket, &event);
        send(all[index], request);
    }
    LoadResult result;
    std::array<epoll_event, 64> events{};
    std::array<char, 65536> buffer{};
    const Clock::time_point start = Clock::now();
    Clock::time_point now = start;
    while (now - start < time) {
        const int count = epoll_wait(epoll, events.data(), events.size(), 1000);
        for (int index = 0; index < count; ++index) {
            Client& client = all[events[static_cast<std::size_t>(index)].data.u32];
            const ssize_t size = recv(client.socket, buffer.data(), buffer.size(), 0);
            if (size <= 0) {
                throw std::runtime_error("the server has hung up");
            }
            client.answer.append(buffer.data(), static_cast<std::size_t>(size));
            if (isWhole(client.answer)) {
                now = Clock::now();
                result.nanoseconds.push_back(static_cast<std::uint32_t>((now - client.sentAt).count()));
                send(client, request);
            }
        }
        now = Clock::now();
    }
    const std::chrono::duration<double> taken = now - start;
    for (const Client& client : all) {
        close(client.socket);
    }
    close(epoll);
    result.requestsPerSecond = static_cast<double>(result.nanoseconds.size()) / taken.count();
    std::ranges::sort(result.nanoseconds);
    return result;
}
