#pragma once

#include <arpa/inet.h>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <optional>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

/// A client that sends literal bytes. Reading gives up after ten seconds, which no test should reach.
class HttpTestClient
{
  public:
    /// An answer as it came.
    struct Answer
    {
        std::string status; ///< such as "200", empty when the connection ended before an answer
        std::string head;   ///< from the status line to the empty line
        std::string body;
    };

    explicit HttpTestClient(std::uint16_t port) : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        const timeval patience{10, 0};
        setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        connected_ = connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    ~HttpTestClient() { close(socket_); }
    HttpTestClient(const HttpTestClient&) = delete;
    HttpTestClient& operator=(const HttpTestClient&) = delete;

    [[nodiscard]] bool connected() const { return connected_; }

    /// Sends all the bytes; false when the connection has broken.
    bool send(std::string_view bytes) const
    {
        while (!bytes.empty()) {
            const ssize_t count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (count <= 0) {
                return false;
            }
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    /// Reads one answer.
    Answer answer()
    {
        std::size_t end = 0;
        while ((end = pending_.find("\r\n\r\n")) == std::string::npos) {
            if (!more()) {
                return {};
            }
        }
        Answer answer;
        answer.head = take(end + 4);
        answer.status = answer.head.substr(9, 3);
        const std::size_t length = lengthIn(answer.head);
        while (pending_.size() < length && more()) {
        }
        answer.body = take(std::min(length, pending_.size()));
        return answer;
    }

    /// Sends and reads one answer.
    Answer ask(std::string_view bytes)
    {
        EXPECT_TRUE(send(bytes));
        return answer();
    }

    /// Reads until the server ends the connection; false when it does not. Gives what came in `pending`.
    bool readToEnd()
    {
        while (more()) {
        }
        return ended_;
    }

    [[nodiscard]] const std::string& pending() const { return pending_; }

  private:
    static std::size_t lengthIn(const std::string& head)
    {
        const std::string name = "Content-Length: ";
        const std::size_t at = head.find(name);
        return at == std::string::npos ? 0 : std::stoul(head.substr(at + name.size()));
    }

    std::string take(std::size_t count)
    {
        std::string taken = pending_.substr(0, count);
        pending_.erase(0, count);
        return taken;
    }

    bool more()
    {
        std::array<char, 65536> buffer{};
        const ssize_t count = recv(socket_, buffer.data(), buffer.size(), 0);
        if (count > 0) {
            pending_.append(buffer.data(), static_cast<std::size_t>(count));
            return true;
        }
        ended_ = count == 0 || errno == ECONNRESET;
        return false;
    }

    int socket_;
    bool connected_ = false;
    bool ended_ = false;
    std::string pending_;
};
