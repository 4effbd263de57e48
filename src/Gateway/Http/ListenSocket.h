#pragma once

#include <cstdint>
#include <string>

namespace zyr_gateway
{

/// A socket that listens. Closes itself.
class ListenSocket
{
  public:
    /// @param address numeric IPv4 or IPv6 address, or `localhost`
    /// @param port 0 takes a free one
    /// @throws HttpServerError
    ListenSocket(const std::string& address, std::uint16_t port);
    ~ListenSocket();
    ListenSocket(const ListenSocket&) = delete;
    ListenSocket& operator=(const ListenSocket&) = delete;

    /// The descriptor.
    [[nodiscard]] int descriptor() const noexcept { return m_descriptor; }
    /// The port in use.
    [[nodiscard]] std::uint16_t port() const noexcept { return m_port; }
    /// Refuses connections from now on; the descriptor stays open.
    void refuse() const noexcept;

  private:
    int m_descriptor = -1;
    std::uint16_t m_port = 0;
};

/// Whether the text is an address that `ListenSocket` takes.
[[nodiscard]] bool isListenAddress(const std::string& address);

} // namespace zyr_gateway
