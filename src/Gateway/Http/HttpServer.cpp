#include "HttpServer.h"

#include "ConnectionWatch.h"
#include "Exchange.h"
#include "ListenSocket.h"
#include "PasswordChecker.h"
#include "RequestHead.h"

#include <microhttpd.h>

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <mutex>
#include <set>
#include <utility>

namespace zyr_gateway
{

namespace
{

/// Connections beyond the limit that are still taken, so that they can be told 503. More wait in the backlog.
constexpr std::size_t kSpareConnections = 32;

/// How long a stop waits for answers to leave that have been given.
constexpr std::chrono::milliseconds kSendGrace{1000};

using ResponsePointer = std::unique_ptr<MHD_Response, decltype(&MHD_destroy_response)>;

/// A user's name and password, as a client sends them.
struct Login
{
    std::string user;
    std::string password;
};

/// What the HTTP library keeps for us with a request.
struct Request
{
    HttpRequest request;
    Login login;
    std::size_t headSize = 0;
    std::shared_ptr<Exchange> exchange; ///< from the moment in which the request is complete
    bool answering = false;
};

/// Answers in the place of a handler that has let its answer fall.
class AnswerOnce
{
  public:
    explicit AnswerOnce(std::shared_ptr<Exchange> exchange) : m_exchange(std::move(exchange)) {}
    ~AnswerOnce() { m_exchange->answer(plainResponse(500, "The request was not answered.")); }
    AnswerOnce(const AnswerOnce&) = delete;
    AnswerOnce& operator=(const AnswerOnce&) = delete;
    void operator()(HttpResponse response) const { m_exchange->answer(std::move(response)); }

  private:
    std::shared_ptr<Exchange> m_exchange;
};

std::string fileContent(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file || content.empty()) {
        throw HttpServerError("cannot read " + path);
    }
    return content;
}

const MHD_ConnectionInfo& infoOf(MHD_Connection* connection, MHD_ConnectionInfoType type)
{
    return *MHD_get_connection_info(connection, type);
}

ConnectionWatch::Connection& watched(MHD_Connection* connection)
{
    return *static_cast<ConnectionWatch::Connection*>(
        infoOf(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT).socket_context);
}

RequestHead headOf(MHD_Connection* connection, const char* path, const char* method, const char* version)
{
    RequestHead head{method, path, version, {}, 0};
    head.size = infoOf(connection, MHD_CONNECTION_INFO_REQUEST_HEADER_SIZE).header_size;
    MHD_get_connection_values(
        connection, MHD_HEADER_KIND,
        [](void* fields, MHD_ValueKind, const char* name, const char* value) {
            static_cast<decltype(head.fields)*>(fields)->emplace_back(name, value == nullptr ? "" : value);
            return MHD_YES;
        },
        &head.fields);
    return head;
}

Login loginOf(MHD_Connection* connection)
{
    char* password = nullptr;
    char* user = MHD_basic_auth_get_username_password(connection, &password);
    Login login{user == nullptr ? "" : user, password == nullptr ? "" : password};
    MHD_free(user);
    MHD_free(password);
    return login;
}

MHD_Result send(MHD_Connection* connection, const HttpResponse& response, bool close)
{
    // The library copies the body and does not change it; its interface is older than const.
    const ResponsePointer message(MHD_create_response_from_buffer(response.body.size(),
                                                                  const_cast<char*>(response.body.data()),
                                                                  MHD_RESPMEM_MUST_COPY),
                                  &MHD_destroy_response);
    if (!message) {
        return MHD_NO;
    }
    const auto add = [&](const char* name, const char* value) {
        return MHD_add_response_header(message.get(), name, value) == MHD_YES;
    };
    bool added = add("Content-Type", response.contentType.c_str());
    if (response.status == 405) {
        added = added && add("Allow", "POST");
    }
    if (response.status == 401) {
        added = added && add("WWW-Authenticate", R"(Basic realm="zyrnode", charset="UTF-8")");
    }
    if (close) {
        added = added && add("Connection", "close");
    }
    return added ? MHD_queue_response(connection, response.status, message.get()) : MHD_NO;
}

} // namespace

class HttpServer::Impl
{
  public:
    Impl(HttpOptions options, Handler handler);
    ~Impl() { stop(std::chrono::milliseconds{0}); }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    void start();
    [[nodiscard]] std::uint16_t port() const noexcept { return m_port; }
    void stopAccepting();
    void stop(std::chrono::milliseconds grace);

  private:
    using ExchangePointer = std::shared_ptr<Exchange>;

    static MHD_Result onAccess(void* self, MHD_Connection* connection, const char* url, const char* method,
                               const char* version, const char* data, std::size_t* size, void** request);
    static void onCompleted(void* self, MHD_Connection* connection, void** request,
                            MHD_RequestTerminationCode);
    static void onConnection(void* self, MHD_Connection* connection, void** context,
                             MHD_ConnectionNotificationCode code);
    static void onLog(void* self, const char* format, va_list arguments);

    MHD_Daemon* startDaemon(int listenSocket);
    MHD_Result begin(MHD_Connection* connection, const RequestHead& head, Request& request);
    MHD_Result refuse(MHD_Connection* connection, Request& request, const HttpResponse& response);
    MHD_Result proceed(MHD_Connection* connection, Request& request);
    void submit(Request& request);
    void handle(HttpRequest request, const ExchangePointer& exchange);
    [[nodiscard]] bool enlist(const ExchangePointer& exchange);
    void answerAll();
    void waitForAnswers(std::chrono::milliseconds time);

    HttpOptions m_options;
    Handler m_handler;
    std::string m_certificate;
    std::string m_key;
    std::string m_startLog;
    std::uint16_t m_port = 0;
    std::atomic<bool> m_starting = false;
    std::unique_ptr<ListenSocket> m_listenSocket;
    std::unique_ptr<ConnectionWatch> m_watch;
    std::unique_ptr<PasswordChecker> m_checker;
    MHD_Daemon* m_daemon = nullptr;
    bool m_accepting = false;

    std::mutex m_mutex;
    std::condition_variable m_fewerDue;
    bool m_stopping = false;
    std::set<ExchangePointer> m_due; ///< complete requests whose answers have not left yet
};

HttpServer::Impl::Impl(HttpOptions options, Handler handler)
    : m_options(std::move(options)), m_handler(std::move(handler))
{
    if (!isListenAddress(m_options.address)) {
        throw HttpServerError("cannot listen on \"" + m_options.address +
                              "\"; use a numeric IPv4 or IPv6 address, or localhost");
    }
    if (!isLoopback(m_options.address) && !m_options.credentials) {
        throw HttpServerError("listening on " + m_options.address +
                              " is open to other machines and needs --credentials FILE; TLS is recommended "
                              "too: a TLS proxy, or --tls-cert FILE and --tls-key FILE");
    }
    if (m_options.tlsCertificateFile.empty() != m_options.tlsKeyFile.empty()) {
        throw HttpServerError("TLS needs both --tls-cert FILE and --tls-key FILE");
    }
}

void HttpServer::Impl::start()
{
    const bool encrypted = !m_options.tlsCertificateFile.empty();
    if (encrypted) {
        m_certificate = fileContent(m_options.tlsCertificateFile);
        m_key = fileContent(m_options.tlsKeyFile);
    }
    auto listenSocket = std::make_unique<ListenSocket>(m_options.address, m_options.port);
    m_watch = std::make_unique<ConnectionWatch>(ConnectionWatch::Limits{
        m_options.maxConnections, m_options.requestDeadline, m_options.idleTimeout, encrypted});
    if (m_options.credentials) {
        m_checker = std::make_unique<PasswordChecker>();
    }
    m_starting = true;
    m_daemon = startDaemon(listenSocket->descriptor());
    m_starting = false;
    if (m_daemon == nullptr) {
        throw HttpServerError("cannot start the HTTP server: " + m_startLog);
    }
    m_port = listenSocket->port();
    m_listenSocket = std::move(listenSocket);
    m_accepting = true;
}

MHD_Daemon* HttpServer::Impl::startDaemon(int listenSocket)
{
    unsigned flags = MHD_USE_EPOLL_INTERNAL_THREAD | MHD_ALLOW_SUSPEND_RESUME | MHD_USE_ERROR_LOG;
    std::vector<MHD_OptionItem> tls;
    if (!m_certificate.empty()) {
        flags |= MHD_USE_TLS;
        tls.push_back({MHD_OPTION_HTTPS_MEM_CERT, 0, m_certificate.data()});
        tls.push_back({MHD_OPTION_HTTPS_MEM_KEY, 0, m_key.data()});
    }
    tls.push_back({MHD_OPTION_END, 0, nullptr});
    // The library's own limits lie beyond ours, so that ours give the answer.
    const auto connections = static_cast<unsigned>(m_options.maxConnections + kSpareConnections);
    const std::size_t memory = 4 * m_options.maxHeaderSize;
    return MHD_start_daemon(flags, 0, nullptr, nullptr, &onAccess, this,       //
                            MHD_OPTION_EXTERNAL_LOGGER, &onLog, this,          //
                            MHD_OPTION_LISTEN_SOCKET, listenSocket,            //
                            MHD_OPTION_CONNECTION_LIMIT, connections,          //
                            MHD_OPTION_CONNECTION_MEMORY_LIMIT, memory,        //
                            MHD_OPTION_STRICT_FOR_CLIENT, 1,                   //
                            MHD_OPTION_NOTIFY_COMPLETED, &onCompleted, this,   //
                            MHD_OPTION_NOTIFY_CONNECTION, &onConnection, this, //
                            MHD_OPTION_ARRAY, tls.data(),                      //
                            MHD_OPTION_END);
}

void HttpServer::Impl::stopAccepting()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    if (std::exchange(m_accepting, false)) {
        // The socket is ours from then on. It stays open, though: the daemon's thread may still look at it.
        MHD_quiesce_daemon(m_daemon);
        m_listenSocket->refuse();
    }
}

void HttpServer::Impl::stop(std::chrono::milliseconds grace)
{
    stopAccepting();
    if (m_daemon == nullptr) {
        return;
    }
    waitForAnswers(grace);
    m_checker.reset();
    answerAll();
    waitForAnswers(kSendGrace);
    MHD_stop_daemon(std::exchange(m_daemon, nullptr));
    m_listenSocket.reset();
    m_watch.reset();
}

void HttpServer::Impl::waitForAnswers(std::chrono::milliseconds time)
{
    std::unique_lock lock(m_mutex);
    m_fewerDue.wait_for(lock, time, [this] { return m_due.empty(); });
}

void HttpServer::Impl::answerAll()
{
    const auto due = [this] {
        const std::lock_guard lock(m_mutex);
        return m_due;
    }();
    for (const ExchangePointer& exchange : due) {
        exchange->answer(plainResponse(503, "The server is stopping."));
    }
}

/// False when the server is stopping and takes no more requests.
bool HttpServer::Impl::enlist(const ExchangePointer& exchange)
{
    const std::lock_guard lock(m_mutex);
    m_due.insert(exchange);
    return !m_stopping;
}

MHD_Result HttpServer::Impl::onAccess(void* self, MHD_Connection* connection, const char* url,
                                      const char* method, const char* version, const char* data,
                                      std::size_t* size, void** request)
{
    auto& server = *static_cast<Impl*>(self);
    try {
        if (*request == nullptr) {
            auto fresh = std::make_unique<Request>();
            Request& begun = *fresh;
            *request = fresh.release();
            return server.begin(connection, headOf(connection, url, method, version), begun);
        }
        auto& running = *static_cast<Request*>(*request);
        if (*size > 0) {
            running.request.body.append(data, *size);
            *size = 0;
            return MHD_YES;
        }
        return server.proceed(connection, running);
    } catch (...) {
        // Out of memory: the library closes the connection.
        return MHD_NO;
    }
}

MHD_Result HttpServer::Impl::begin(MHD_Connection* connection, const RequestHead& head, Request& request)
{
    ConnectionWatch::Connection& client = watched(connection);
    m_watch->receiving(client);
    request.headSize = head.size;
    if (client.excess) {
        return refuse(connection, request, plainResponse(503, "There are too many connections."));
    }
    if (const auto refusal = refusalOf(head, m_options)) {
        return refuse(connection, request, *refusal);
    }
    if (m_options.credentials) {
        request.login = loginOf(connection);
    }
    request.request.method = head.method;
    request.request.path = head.path;
    request.request.contentType = mediaType(head.value("Content-Type"));
    return MHD_YES;
}

MHD_Result HttpServer::Impl::refuse(MHD_Connection* connection, Request& request,
                                    const HttpResponse& response)
{
    request.answering = true;
    m_watch->lingerAfter(watched(connection));
    m_watch->answering(watched(connection));
    return send(connection, response, true);
}

/// Called when the request is complete, and again when its connection has been woken.
MHD_Result HttpServer::Impl::proceed(MHD_Connection* connection, Request& request)
{
    if (request.answering) {
        return MHD_YES;
    }
    if (!request.exchange) {
        request.exchange = std::make_shared<Exchange>();
        m_watch->working(watched(connection));
        submit(request);
    }
    const auto response = request.exchange->takeOrSleep(connection);
    if (!response) {
        return MHD_YES;
    }
    request.answering = true;
    m_watch->answering(watched(connection));
    const bool close = [this] {
        const std::lock_guard lock(m_mutex);
        return m_stopping;
    }();
    return send(connection, *response, close || response->status == 401);
}

void HttpServer::Impl::submit(Request& request)
{
    const ExchangePointer exchange = request.exchange;
    request.headSize += request.request.body.size();
    if (!enlist(exchange)) {
        exchange->answer(plainResponse(503, "The server is stopping."));
        return;
    }
    const Login login = std::exchange(request.login, {});
    request.request.user = login.user;
    const bool known =
        !m_options.credentials || m_options.credentials->isRemembered(login.user, login.password);
    if (known) {
        handle(std::move(request.request), exchange);
        return;
    }
    auto check = [this, login, exchange, request = std::move(request.request)]() mutable {
        if (m_options.credentials->accepts(login.user, login.password)) {
            handle(std::move(request), exchange);
        } else {
            exchange->answer(plainResponse(401, "The user or the password is wrong."));
        }
    };
    if (!m_checker->submit(std::move(check))) {
        exchange->answer(plainResponse(503, "Too many passwords are waiting to be checked."));
    }
}

void HttpServer::Impl::handle(HttpRequest request, const ExchangePointer& exchange)
{
    const auto once = std::make_shared<AnswerOnce>(exchange);
    try {
        m_handler(std::move(request), [once](HttpResponse response) { (*once)(std::move(response)); });
    } catch (...) {
        exchange->answer(plainResponse(500, "The request has failed."));
    }
}

void HttpServer::Impl::onCompleted(void* self, MHD_Connection* connection, void** request,
                                   MHD_RequestTerminationCode)
{
    auto& server = *static_cast<Impl*>(self);
    const std::unique_ptr<Request> ended(static_cast<Request*>(std::exchange(*request, nullptr)));
    if (!ended) {
        return;
    }
    server.m_watch->answered(watched(connection), ended->headSize);
    if (ended->exchange) {
        const std::lock_guard lock(server.m_mutex);
        server.m_due.erase(ended->exchange);
        server.m_fewerDue.notify_all();
    }
}

void HttpServer::Impl::onConnection(void* self, MHD_Connection* connection, void** context,
                                    MHD_ConnectionNotificationCode code)
{
    auto& server = *static_cast<Impl*>(self);
    if (code == MHD_CONNECTION_NOTIFY_STARTED) {
        *context = server.m_watch->opened(infoOf(connection, MHD_CONNECTION_INFO_CONNECTION_FD).connect_fd);
    } else {
        server.m_watch->closing(static_cast<ConnectionWatch::Connection*>(*context));
    }
}

/// Keeps what the library says while it starts, as the reason when it cannot. Later messages tell of clients'
/// mistakes, and those have been answered.
void HttpServer::Impl::onLog(void* self, const char* format, va_list arguments)
{
    auto& server = *static_cast<Impl*>(self);
    if (!server.m_starting) {
        return;
    }
    std::array<char, 256> line{};
    std::vsnprintf(line.data(), line.size(), format, arguments);
    server.m_startLog += line.data();
}

HttpServer::HttpServer(HttpOptions options, Handler handler)
    : m_impl(std::make_unique<Impl>(std::move(options), std::move(handler)))
{}

HttpServer::~HttpServer() = default;

void HttpServer::start()
{
    m_impl->start();
}

std::uint16_t HttpServer::port() const noexcept
{
    return m_impl->port();
}

void HttpServer::stopAccepting()
{
    m_impl->stopAccepting();
}

void HttpServer::stop(std::chrono::milliseconds grace)
{
    m_impl->stop(grace);
}

} // namespace zyr_gateway
