#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

/// A client that sends literal bytes. Reading gives up after a minute, which no test should reach.
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

    explicit HttpTestClient(std::uint16_t port) : m_socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        const timeval patience{60, 0};
        setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        m_connected = connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    ~HttpTestClient() { close(m_socket); }
    HttpTestClient(const HttpTestClient&) = delete;
    HttpTestClient& operator=(const HttpTestClient&) = delete;

    [[nodiscard]] bool connected() const { return m_connected; }

    /// Sends all the bytes; false when the connection has broken.
    bool send(std::string_view bytes) const
    {
        while (!bytes.empty()) {
            const ssize_t count = ::send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (count <= 0) {
                return false;
            }
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    /// Sends nothing more, but still reads.
    void endSending() const { shutdown(m_socket, SHUT_WR); }

    /// The connection ends with a reset when the client goes.
    void resetAtEnd() const
    {
        const linger atOnce{1, 0};
        setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    }

    /// Reads one answer.
    Answer answer()
    {
        std::size_t end = 0;
        while ((end = m_pending.find("\r\n\r\n")) == std::string::npos) {
            if (!more()) {
                return {};
            }
        }
        Answer answer;
        answer.head = take(end + 4);
        answer.status = answer.head.substr(9, 3);
        const std::size_t length = lengthIn(answer.head);
        while (m_pending.size() < length && more()) {
        }
        answer.body = take(std::min(length, m_pending.size()));
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
        return m_ended;
    }

    [[nodiscard]] const std::string& pending() const { return m_pending; }

  private:
    static std::size_t lengthIn(const std::string& head)
    {
        const std::string name = "Content-Length: ";
        const std::size_t at = head.find(name);
        return at == std::string::npos ? 0 : std::stoul(head.substr(at + name.size()));
    }

    std::string take(std::size_t count)
    {
        std::string taken = m_pending.substr(0, count);
        m_pending.erase(0, count);
        return taken;
    }

    bool more()
    {
        std::array<char, 65536> buffer{};
        const ssize_t count = recv(m_socket, buffer.data(), buffer.size(), 0);
        if (count > 0) {
            m_pending.append(buffer.data(), static_cast<std::size_t>(count));
            return true;
        }
        m_ended = count == 0 || errno == ECONNRESET;
        return false;
    }

    int m_socket;
    bool m_connected = false;
    bool m_ended = false;
    std::string m_pending;
};
