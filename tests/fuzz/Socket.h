#pragma once

#include <string>
#include <string_view>

namespace zyr_fuzz
{

/// A TCP socket on the loopback; closes itself. Reading gives up after five seconds, which no input should
/// reach.
class Socket
{
  public:
    /// Connects to a server of this machine.
    explicit Socket(unsigned short port);

    /// Listens on a free port.
    Socket();
    ~Socket();
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    unsigned short port() const;

    /// The next connection of a listening socket.
    Socket accepted() const;

    /// Sends the bytes, as many of them as the other side takes, and says that there are no more.
    void sendAll(std::string_view bytes) const;

    /// What comes until the text `last` has come, or until the other side has ended.
    /// @param hasEnded  whether the other side has ended; may be null
    std::string read(std::string_view last, bool* hasEnded = nullptr) const;

  private:
    struct Descriptor
    {
        int number;
    };
    explicit Socket(Descriptor descriptor);

    int m_socket;
};

} // namespace zyr_fuzz
