#include "HttpServer.h"

#include "ConnectionWatch.h"
#include "Exchange.h"
#include "GatewayTrace.h"
#include "ListenSocket.h"
#include "MemoryBudget.h"
#include "PasswordChecker.h"
#include "PrivateFile.h"
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

#include <malloc.h>
#include <netdb.h>
#include <netinet/tcp.h>
#include <sys/resource.h>
#include <sys/socket.h>

namespace zyr_gateway
{

namespace
{

using Clock = std::chrono::steady_clock;

/// Connections beyond the limit that are still taken, so that they can be told 503.
constexpr std::size_t kSpareConnections = 32;
/// As many may wait for an answer although their other side has ended, which do not count for the limit.
constexpr std::size_t kEndedConnections = 128;
/// Descriptors that the process needs for other things.
constexpr std::size_t kOtherDescriptors = 64;

/// A longer body gets its memory as it comes.
constexpr std::size_t kReservedBody = 16UL * 1024UL;

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
    std::string target;      ///< as it was sent
    const char* targetPlace; ///< where the library has it
    bool hasBegun = false;
    HttpRequest request;
    Login login;
    std::size_t bodyLength = 0; ///< as announced
    std::size_t size = 0;       ///< of head and body
    Clock::time_point since =
        gatewayTrace.isEnabled(5) ? Clock::now() : Clock::time_point(); ///< for the trace
    std::shared_ptr<Exchange> exchange;                                 ///< once the head is in order
    bool isTooMuch = false;
    bool isSubmitted = false;
    bool isEnlisted = false;
    bool answering = false;
};

/// The body of an answer while the library sends it.
struct SentBody
{
    std::string text;
    std::shared_ptr<Exchange> exchange; ///< null: its memory does not count
};

void freeSentBody(void* body)
{
    const std::unique_ptr<SentBody> sent(static_cast<SentBody*>(body));
    sent->text = std::string();
    if (sent->exchange) {
        sent->exchange->release();
    }
}

std::string peerOf(int socket)
{
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    std::array<char, NI_MAXHOST> host{};
    std::array<char, NI_MAXSERV> port{};
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    const bool known = getpeername(socket, generic, &size) == 0 &&
                       getnameinfo(generic, size, host.data(), host.size(), port.data(), port.size(),
                                   NI_NUMERICHOST | NI_NUMERICSERV) == 0;
    return known ? std::string(host.data()) + " port " + port.data() : "a client that is gone";
}

/// What vanishes without a word is noticed after a minute.
void keepAlive(int socket)
{
    const auto set = [socket](int level, int name, int value) {
        setsockopt(socket, level, name, &value, sizeof value);
    };
    set(SOL_SOCKET, SO_KEEPALIVE, 1);
    set(IPPROTO_TCP, TCP_KEEPIDLE, 30);
    set(IPPROTO_TCP, TCP_KEEPINTVL, 10);
    set(IPPROTO_TCP, TCP_KEEPCNT, 3);
}

void requireDescriptors(rlim_t count)
{
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= count) {
        return;
    }
    limit.rlim_cur = count;
    if (limit.rlim_max < count || setrlimit(RLIMIT_NOFILE, &limit) != 0) {
        throw HttpServerError("the limit of open files is " + std::to_string(limit.rlim_max) + ", and " +
                              std::to_string(count) + " are needed; raise it, as with: ulimit -Hn " +
                              std::to_string(count));
    }
}

std::string fileContent(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file || content.empty()) {
        throw HttpServerError("cannot read " + path);
    }
    return content;
}

std::string privateKey(const std::string& path)
{
    try {
        return readPrivateFile(path, "TLS key");
    } catch (const FileError& error) {
        throw HttpServerError(error.what());
    }
}

const MHD_ConnectionInfo& infoOf(MHD_Connection* connection, MHD_ConnectionInfoType type)
{
    return *MHD_get_connection_info(connection, type);
}

int socketOf(MHD_Connection* connection)
{
    return infoOf(connection, MHD_CONNECTION_INFO_CONNECTION_FD).connect_fd;
}

/// Null when there was no memory for it.
ConnectionWatch::Connection* watched(MHD_Connection* connection)
{
    return static_cast<ConnectionWatch::Connection*>(
        infoOf(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT).socket_context);
}

RequestHead headOf(MHD_Connection* connection, const Request& request, const char* method,
                   const char* version)
{
    RequestHead head;
    head.method = method;
    head.version = version;
    head.size = infoOf(connection, MHD_CONNECTION_INFO_REQUEST_HEADER_SIZE).header_size;
    head.target = request.target;
    head.targetPlace = request.targetPlace;
    head.fields.reserve(16);
    MHD_get_connection_values(
        connection, MHD_HEADER_KIND,
        [](void* read, MHD_ValueKind, const char* name, const char* value) {
            static_cast<RequestHead*>(read)->add(name, value == nullptr ? "" : value);
            return MHD_YES;
        },
        &head);
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

/// @param exchange where the memory of the body counts; null: nowhere
MHD_Result send(MHD_Connection* connection, HttpResponse response, bool close,
                std::shared_ptr<Exchange> exchange)
{
    auto body = std::make_unique<SentBody>(SentBody{std::move(response.body), std::move(exchange)});
    const ResponsePointer message(MHD_create_response_from_buffer_with_free_callback_cls(
                                      body->text.size(), body->text.data(), &freeSentBody, body.get()),
                                  &MHD_destroy_response);
    if (!message) {
        return MHD_NO;
    }
    (void)body.release(); // the message's from now on
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

/// Stands for the answer to one request, which must not be let fall.
struct HttpServer::Answer::Ticket
{
    explicit Ticket(std::shared_ptr<Exchange> answered) : exchange(std::move(answered)) {}
    ~Ticket() { exchange->letFall(); }
    Ticket(const Ticket&) = delete;
    Ticket& operator=(const Ticket&) = delete;

    const std::shared_ptr<Exchange> exchange;
};

HttpServer::Answer::Answer(std::shared_ptr<Exchange> exchange)
    : m_ticket(std::make_shared<Ticket>(std::move(exchange)))
{}

void HttpServer::Answer::operator()(HttpResponse response) const
{
    m_ticket->exchange->answer(std::move(response));
}

void HttpServer::Answer::whenClientLeaves(std::function<void()> function) const
{
    m_ticket->exchange->whenClientLeaves(std::move(function));
}

bool HttpServer::Answer::hasClientLeft() const
{
    return m_ticket->exchange->hasClientLeft();
}

class HttpServer::Impl
{
  public:
    Impl(HttpOptions options, Handler handler);
    ~Impl() { stop(std::chrono::milliseconds{0}); }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    void start();
    [[nodiscard]] std::uint16_t port() const noexcept { return m_port; }
    void setCredentials(Credentials credentials);
    void stopAccepting();
    void stop(std::chrono::milliseconds grace);

  private:
    using ExchangePointer = std::shared_ptr<Exchange>;

    static void* onTarget(void* self, const char* target, MHD_Connection* connection);
    static MHD_Result onAccess(void* self, MHD_Connection* connection, const char* url, const char* method,
                               const char* version, const char* data, std::size_t* size, void** request);
    static void onCompleted(void* self, MHD_Connection* connection, void** request,
                            MHD_RequestTerminationCode);
    static void onConnection(void* self, MHD_Connection* connection, void** context,
                             MHD_ConnectionNotificationCode code);
    static void onLog(void* self, const char* format, va_list arguments);

    MHD_Daemon* startDaemon(int listenSocket);
    MHD_Result begin(MHD_Connection* connection, const RequestHead& head, Request& request);
    static void receive(Request& request, std::string_view data);
    MHD_Result refuse(MHD_Connection* connection, Request& request, const HttpResponse& response);
    MHD_Result proceed(MHD_Connection* connection, Request& request);
    MHD_Result answer(MHD_Connection* connection, Request& request, HttpResponse response);
    void submit(MHD_Connection* connection, Request& request);
    void check(HttpRequest request, Login login, const std::string& peer, const ExchangePointer& exchange);
    void handle(HttpRequest request, const ExchangePointer& exchange);
    [[nodiscard]] std::shared_ptr<const Credentials> credentials();
    void enlist(const ExchangePointer& exchange);
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

    const bool m_needsLogin;
    const std::shared_ptr<MemoryBudget> m_held;
    std::atomic<bool> m_stopping = false;
    std::atomic<std::size_t> m_inWork = 0; ///< complete requests whose answers have not left yet
    std::mutex m_mutex;
    std::condition_variable m_noneInWork;
    std::shared_ptr<const Credentials> m_credentials;
    bool m_isOver = false;           ///< what is not answered yet gets no other answer than 503
    std::set<ExchangePointer> m_due; ///< those of them that were not answered at once
};

HttpServer::Impl::Impl(HttpOptions options, Handler handler)
    : m_options(std::move(options)), m_handler(std::move(handler)),
      m_needsLogin(m_options.credentials.has_value()),
      m_held(std::make_shared<MemoryBudget>(m_options.maxHeld))
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
    if (m_needsLogin) {
        m_credentials = std::make_shared<const Credentials>(*std::move(m_options.credentials));
    }
}

void HttpServer::Impl::setCredentials(Credentials credentials)
{
    auto fresh = std::make_shared<const Credentials>(std::move(credentials));
    const std::lock_guard lock(m_mutex);
    m_credentials.swap(fresh);
}

std::shared_ptr<const Credentials> HttpServer::Impl::credentials()
{
    const std::lock_guard lock(m_mutex);
    return m_credentials;
}

void HttpServer::Impl::start()
{
    const bool encrypted = !m_options.tlsCertificateFile.empty();
    if (encrypted) {
        m_certificate = fileContent(m_options.tlsCertificateFile);
        m_key = privateKey(m_options.tlsKeyFile);
    }
    requireDescriptors(m_options.maxConnections + kSpareConnections + kEndedConnections + kOtherDescriptors);
    auto listenSocket = std::make_unique<ListenSocket>(m_options.address, m_options.port);
    m_watch = std::make_unique<ConnectionWatch>(
        ConnectionWatch::Limits{m_options.maxConnections, kSpareConnections, m_options.requestDeadline,
                                m_options.idleTimeout, encrypted});
    if (m_needsLogin) {
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
    const auto connections =
        static_cast<unsigned>(m_options.maxConnections + 2 * kSpareConnections + kEndedConnections);
    // It is cleared for each request, so there is no more of it than helps.
    const std::size_t memory = 2 * m_options.maxHeaderSize;
    return MHD_start_daemon(flags, 0, nullptr, nullptr, &onAccess, this,       //
                            MHD_OPTION_EXTERNAL_LOGGER, &onLog, this,          //
                            MHD_OPTION_LISTEN_SOCKET, listenSocket,            //
                            MHD_OPTION_CONNECTION_LIMIT, connections,          //
                            MHD_OPTION_CONNECTION_MEMORY_LIMIT, memory,        //
                            MHD_OPTION_URI_LOG_CALLBACK, &onTarget, this,      //
                            MHD_OPTION_NOTIFY_COMPLETED, &onCompleted, this,   //
                            MHD_OPTION_NOTIFY_CONNECTION, &onConnection, this, //
                            MHD_OPTION_ARRAY, tls.data(),                      //
                            MHD_OPTION_END);
}

void HttpServer::Impl::stopAccepting()
{
    m_stopping = true;
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
    m_noneInWork.wait_for(lock, time, [this] { return m_inWork == 0; });
}

void HttpServer::Impl::answerAll()
{
    const auto due = [this] {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
        return m_due;
    }();
    for (const ExchangePointer& exchange : due) {
        exchange->answer(plainResponse(503, "The server is stopping."));
    }
}

void HttpServer::Impl::enlist(const ExchangePointer& exchange)
{
    const std::lock_guard lock(m_mutex);
    m_due.insert(exchange);
    if (m_isOver) {
        exchange->answer(plainResponse(503, "The server is stopping."));
    }
}

/// Called when the request line is complete.
void* HttpServer::Impl::onTarget(void* self, const char* target, MHD_Connection* connection)
{
    try {
        auto request = std::make_unique<Request>();
        request->target = target == nullptr ? "" : target;
        request->targetPlace = target;
        if (ConnectionWatch::Connection* const client = watched(connection)) {
            static_cast<Impl*>(self)->m_watch->receiving(*client);
        }
        return request.release();
    } catch (const std::exception&) {
        return nullptr;
    }
}

MHD_Result HttpServer::Impl::onAccess(void* self, MHD_Connection* connection, const char*, const char* method,
                                      const char* version, const char* data, std::size_t* size,
                                      void** request)
{
    auto& server = *static_cast<Impl*>(self);
    if (*request == nullptr || watched(connection) == nullptr) {
        return MHD_NO;
    }
    auto& running = *static_cast<Request*>(*request);
    try {
        if (!std::exchange(running.hasBegun, true)) {
            return server.begin(connection, headOf(connection, running, method, version), running);
        }
        if (*size > 0) {
            receive(running, {data, *size});
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
    request.size = head.size;
    if (m_watch->isExcess(*watched(connection))) {
        return refuse(connection, request, plainResponse(503, "There are too many connections."));
    }
    if (const auto refusal = refusalOf(head, m_options, m_needsLogin)) {
        log(refusal->status == 400 || refusal->status == 401 || refusal->status == 403 ? 2 : 5, [&] {
            return "refused with " + std::to_string(refusal->status) + ": " + peerOf(socketOf(connection)) +
                   ", Host " + forTrace(head[Known::Host].value) + ", " + forTrace(head.method) + " " +
                   forTrace(head.path()) + ": " + refusal->body.substr(0, refusal->body.size() - 1);
        });
        return refuse(connection, request, *refusal);
    }
    if (m_needsLogin) {
        request.login = loginOf(connection);
    }
    request.request.method = head.method;
    request.request.path = head.path();
    request.request.contentType = mediaType(head[Known::ContentType].value);
    request.bodyLength = static_cast<std::size_t>(*bodyLength(head));
    request.request.body.reserve(std::min(request.bodyLength, kReservedBody));
    request.exchange = std::make_shared<Exchange>(m_held);
    return MHD_YES;
}

/// A body that is too much is read to its end, because the library takes no answer before.
void HttpServer::Impl::receive(Request& request, std::string_view data)
{
    request.size += data.size();
    if (request.isTooMuch) {
        return;
    }
    std::string& body = request.request.body;
    try {
        const std::size_t size = body.size() + data.size();
        request.isTooMuch = !request.exchange->holdBody(size);
        if (size > body.capacity()) {
            body.reserve(std::min(request.bodyLength, 2 * size));
        }
        body.append(data);
    } catch (const std::bad_alloc&) {
        request.isTooMuch = true;
    }
    if (request.isTooMuch) {
        std::string().swap(body);
    }
}

MHD_Result HttpServer::Impl::refuse(MHD_Connection* connection, Request& request,
                                    const HttpResponse& response)
{
    request.answering = true;
    m_watch->lingerAfter(*watched(connection));
    m_watch->answering(*watched(connection));
    return send(connection, response, true, nullptr);
}

/// Called when the request is complete, and again until it has been answered.
MHD_Result HttpServer::Impl::proceed(MHD_Connection* connection, Request& request)
{
    if (request.answering) {
        return MHD_YES;
    }
    if (request.isTooMuch) {
        return refuse(connection, request, tooMuchInWork());
    }
    if (std::exchange(request.isSubmitted, true)) {
        auto response = request.exchange->takeOrSleep(connection);
        return response ? answer(connection, request, *std::move(response)) : MHD_YES;
    }
    ++m_inWork;
    submit(connection, request);
    if (auto response = request.exchange->take()) {
        return answer(connection, request, *std::move(response));
    }
    // The connection does not sleep before the next round: put to sleep in the round in which it was read
    // from, it would be read from first when it wakes, and a client that has ended its side taken for gone.
    request.isEnlisted = true;
    enlist(request.exchange);
    m_watch->working(*watched(connection), request.exchange);
    return MHD_YES;
}

MHD_Result HttpServer::Impl::answer(MHD_Connection* connection, Request& request, HttpResponse response)
{
    request.answering = true;
    m_watch->answering(*watched(connection));
    log(5, [&] {
        const auto taken =
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - request.since);
        const std::string& user = request.request.user;
        return std::to_string(response.status) + " in " + std::to_string(taken.count()) + " ms, " +
               std::to_string(request.size) + " bytes in, " + std::to_string(response.body.size()) +
               " bytes out, " + (user.empty() ? "" : "user " + forTrace(user) + ", ") +
               peerOf(socketOf(connection));
    });
    const bool close = m_stopping || response.status == 401;
    return send(connection, std::move(response), close, request.exchange);
}

void HttpServer::Impl::submit(MHD_Connection* connection, Request& request)
{
    const ExchangePointer& exchange = request.exchange;
    if (m_stopping) {
        exchange->answer(plainResponse(503, "The server is stopping."));
        return;
    }
    if (!m_needsLogin) {
        handle(std::move(request.request), exchange);
        return;
    }
    Login login = std::exchange(request.login, {});
    request.request.user = login.user;
    HttpRequest work = std::move(request.request);
    request.request.user = login.user;
    if (credentials()->isRemembered(login.user, login.password)) {
        handle(std::move(work), exchange);
        return;
    }
    auto task = [this, exchange, login = std::move(login), work = std::move(work),
                 peer = peerOf(socketOf(connection))]() mutable {
        try {
            check(std::move(work), std::move(login), peer, exchange);
        } catch (const std::exception&) {
            exchange->letFall(); // out of memory
        }
    };
    if (!m_checker->submit(std::move(task))) {
        exchange->answer(plainResponse(503, "Too many passwords are waiting to be checked."));
    }
}

void HttpServer::Impl::check(HttpRequest request, Login login, const std::string& peer,
                             const ExchangePointer& exchange)
{
    if (credentials()->accepts(login.user, login.password)) {
        handle(std::move(request), exchange);
        return;
    }
    log(2, [&] { return "failed login: user " + forTrace(login.user) + ", " + peer; });
    exchange->answer(plainResponse(401, "The user or the password is wrong."));
}

void HttpServer::Impl::handle(HttpRequest request, const ExchangePointer& exchange)
{
    const Answer answer(exchange); // falls behind what is said here
    try {
        m_handler(std::move(request), answer);
    } catch (const std::bad_alloc&) {
        exchange->answer(plainResponse(503, "The server is out of memory."));
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
    if (ConnectionWatch::Connection* const client = watched(connection)) {
        server.m_watch->answered(*client, ended->size);
    }
    if (server.m_held->isBurstOver()) {
        malloc_trim(0); // a burst leaves many pages with but a few small pieces in them
    }
    if (!ended->isSubmitted) {
        return;
    }
    const bool isLast = --server.m_inWork == 0;
    if (ended->isEnlisted || (isLast && server.m_stopping)) {
        const std::lock_guard lock(server.m_mutex);
        server.m_due.erase(ended->exchange);
        server.m_noneInWork.notify_all();
    }
}

void HttpServer::Impl::onConnection(void* self, MHD_Connection* connection, void** context,
                                    MHD_ConnectionNotificationCode code)
{
    auto& server = *static_cast<Impl*>(self);
    if (code == MHD_CONNECTION_NOTIFY_CLOSED) {
        if (*context != nullptr) {
            server.m_watch->closing(static_cast<ConnectionWatch::Connection*>(*context));
        }
        return;
    }
    const int socket = socketOf(connection);
    keepAlive(socket);
    try {
        *context = server.m_watch->opened(socket);
    } catch (const std::exception&) {
        // Out of memory.
        shutdown(socket, SHUT_RDWR);
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

void HttpServer::setCredentials(Credentials credentials)
{
    m_impl->setCredentials(std::move(credentials));
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
