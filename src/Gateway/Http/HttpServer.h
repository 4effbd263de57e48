#pragma once

#include "Credentials.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace zyr_gateway
{

/// The server cannot start as it was asked to. The text names the reason and what to do.
class HttpServerError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// Where and how the server listens. The defaults are those of the product; tests shorten the times.
struct HttpOptions
{
    std::string address = "127.0.0.1"; ///< numeric IPv4 or IPv6 address, or `localhost`
    std::uint16_t port = 0;            ///< 0 takes a free one, see `HttpServer::port`

    /// For one more, the connection goes that has been idle longest; when none is idle, it is answered with
    /// 503.
    std::size_t maxConnections = 128;
    std::size_t maxBodySize = 512UL * 1024UL; ///< bytes; more is answered with 413
    std::size_t maxHeaderSize = 8UL * 1024UL; ///< bytes, request line included; more is answered with 431

    /// Bytes of all bodies and answers that are held at one time; what would be more is answered with 503.
    std::size_t maxHeld = 64UL * 1024UL * 1024UL;

    /// From the first byte of a request to its last, and again from the answer to its last byte sent.
    std::chrono::milliseconds requestDeadline{10'000};
    /// How long a connection may be silent between two requests.
    std::chrono::milliseconds idleTimeout{15'000};

    std::optional<Credentials> credentials; ///< who may call; necessary beyond loopback
    std::string tlsCertificateFile;         ///< PEM; empty: no TLS
    std::string tlsKeyFile;                 ///< PEM; empty: no TLS
};

/// A whole request that has passed all checks: POST, a path that is served, an XML content type.
struct HttpRequest
{
    std::string method;
    std::string path;
    std::string contentType; ///< media type in small letters, without parameters
    std::string body;
    std::string user; ///< the authenticated user; empty without credentials
};

/// What the caller gets.
struct HttpResponse
{
    unsigned status = 200;
    std::string contentType = "text/xml";
    std::string body;
};

class Exchange;

/// An HTTP server for one handler: POST to `/` and `/RPC2` with an XML content type.
///
/// One thread does all input and output, and calls the handler; one looks after deadlines and clients that
/// leave; a third checks passwords when there are credentials. A request that waits for its answer holds no
/// thread.
///
/// What it answers itself: 400 (not HTTP by its strict grammar, a `Host` that is not this machine's while on
/// loopback, a doubled `Content-Length`), 401, 403 (a page of another site calls), 404, 405, 411, 413, 415,
/// 431, 500 (the handler has thrown, or has let its answer fall), 503 (too many connections, too much in
/// work, out of memory, or stopping). A request line longer than twice `maxHeaderSize` is answered with
/// 414. With a refusal of a request's head the connection ends.
///
/// It traces to "ZYR.GATEWAY": failed logins and refused requests at level 2, each request at level 5.
class HttpServer
{
  public:
    /// Delivers the answer. Any thread may call it, once; later calls, also those after the server has
    /// stopped or is gone, do nothing. Copies stand for the same answer.
    class Answer
    {
      public:
        explicit Answer(std::shared_ptr<Exchange> exchange);
        void operator()(HttpResponse response) const;

        /// Has a function called, at most once, when the client leaves before the answer. A client that only
        /// ends its own side of the connection counts as one that leaves, since the two look the same; an
        /// answer is sent to it all the same. The function may be called from another thread at once, and
        /// must not throw.
        void whenClientLeaves(std::function<void()> function) const;

        /// Whether the client has left by now, in the same sense.
        [[nodiscard]] bool hasClientLeft() const;

      private:
        struct Ticket;
        std::shared_ptr<Ticket> m_ticket;
    };

    /// Takes a request. Called by the thread that does all input and output, or the one that checks
    /// passwords, so it must not wait: it hands the work on, or answers at once.
    using Handler = std::function<void(HttpRequest, Answer)>;

    /// Checks the options; nothing listens yet.
    /// @throws HttpServerError when the address is not numeric, or beyond loopback without credentials
    HttpServer(HttpOptions options, Handler handler);
    /// Stops without grace.
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    /// Listens. To be called once. Raises the process's limit of open files if it is too low.
    /// @throws HttpServerError when the port is taken, the TLS files cannot be used, or the limit of open
    ///         files cannot be raised
    void start();

    /// The port that it listens on, also when 0 was asked; 0 before `start`.
    [[nodiscard]] std::uint16_t port() const noexcept;

    /// From now on, these are the users. Only for a server that has credentials already. Any thread.
    void setCredentials(Credentials credentials);

    /// Takes no more connections, and answers further requests on the open ones with 503. Requests that have
    /// been handed to the handler stay.
    void stopAccepting();

    /// `stopAccepting`, then waits at most `grace` for the answers that are due, answers the rest with 503,
    /// and ends. A second call does nothing. One thread starts and stops; never from within the handler.
    void stop(std::chrono::milliseconds grace);

  private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace zyr_gateway
