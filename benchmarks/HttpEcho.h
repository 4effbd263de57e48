#pragma once

#include <cstdint>

/// What an HTTP server can do at best on this machine: a libmicrohttpd server with one thread that sends each
/// body back, in a process of its own.
class HttpEcho
{
  public:
    /// @param parses whether it also has pugixml parse the body
    explicit HttpEcho(bool parses);
    ~HttpEcho();
    HttpEcho(const HttpEcho&) = delete;
    HttpEcho& operator=(const HttpEcho&) = delete;

    [[nodiscard]] std::uint16_t port() const { return m_port; }
    [[nodiscard]] int process() const { return m_process; }

  private:
    int m_process = -1;
    std::uint16_t m_port = 0;
};
