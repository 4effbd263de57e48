#pragma once

#include "Codec.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zyr_gateway
{

/// A call that brought no XML-RPC answer. The text is fit for people; it never holds the password.
class ClientError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// No connection: name not found, refused, unreachable, TLS not agreed.
class ConnectError : public ClientError
{
  public:
    using ClientError::ClientError;
};

/// The time-out has passed before the answer was complete.
class TimeoutError : public ClientError
{
  public:
    using ClientError::ClientError;
};

/// The server has answered with an HTTP status other than 200.
class HttpStatusError : public ClientError
{
  public:
    HttpStatusError(long status, const std::string& text) : ClientError(text), m_status(status) {}

    /// The HTTP status, such as 401.
    [[nodiscard]] long status() const noexcept { return m_status; }

  private:
    long m_status;
};

/// What came back is not an XML-RPC answer, or the exchange broke off.
class ProtocolError : public ClientError
{
  public:
    using ClientError::ClientError;
};

/// The exchange broke off before the answer was complete.
class BrokenOffError : public ProtocolError
{
  public:
    using ProtocolError::ProtocolError;
};

/// How the client reaches its server.
struct ClientOptions
{
    /// User and password for Basic authentication.
    struct Login
    {
        std::string user;
        std::string password;
    };

    /// Which part of an exchange `watch` is shown.
    enum class Wire
    {
        Sent,
        Received
    };

    std::string url;                           ///< `http://` or `https://`, with the path
    std::chrono::milliseconds timeout{30'000}; ///< for a whole call; 0 waits for ever
    std::optional<Login> login;                ///< sent only when present
    std::string caFile;                        ///< PEM file of trusted certificates; empty: the system's
    std::size_t maxResponseSize = 16UL * 1024UL * 1024UL; ///< bytes; a longer answer is a protocol error

    /// Shown the bytes of headers and bodies as they pass. The value of an `Authorization` header is hidden.
    /// Must not throw. Called by the thread that calls.
    std::function<void(Wire, std::string_view)> watch;
};

/// Calls methods of an XML-RPC server, one call after the other, over a connection that is kept.
///
/// An object is used by one thread at a time.
class XmlRpcClient
{
  public:
    /// @throws ClientError when the URL or an option cannot be used
    explicit XmlRpcClient(ClientOptions options);
    ~XmlRpcClient();
    XmlRpcClient(const XmlRpcClient&) = delete;
    XmlRpcClient& operator=(const XmlRpcClient&) = delete;

    /// Calls and waits for the answer. A fault is an answer, not an error.
    /// @throws ConnectError, TimeoutError, HttpStatusError, ProtocolError
    [[nodiscard]] MethodResponse call(const MethodCall& call);

  private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace zyr_gateway
