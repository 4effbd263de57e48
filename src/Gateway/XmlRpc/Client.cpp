#include "Client.h"

#include "WipingMemory.h"

#include <curl/curl.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <utility>

#include <strings.h>

namespace zyr_gateway
{

namespace
{

using HeaderList = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

/// libcurl wants this once per process, before its first use.
void initialiseCurl()
{
    static std::once_flag once;
    std::call_once(once, [] {
        // Requests pass through its buffers, and they hold keys.
        curl_global_init_mem(CURL_GLOBAL_DEFAULT, &std::malloc, &wipingFree, &wipingRealloc, &strdup,
                             &std::calloc);
    });
}

/// The header with the values of its `Authorization` lines hidden.
std::string withoutSecrets(std::string_view header)
{
    constexpr std::string_view secretName = "authorization:";
    std::string shown;
    while (!header.empty()) {
        const std::size_t end = header.find('\n');
        const std::string_view line = header.substr(0, end == std::string_view::npos ? end : end + 1);
        const bool secret = line.size() >= secretName.size() &&
                            strncasecmp(line.data(), secretName.data(), secretName.size()) == 0;
        shown += secret ? "Authorization: (hidden)\r\n" : line;
        header.remove_prefix(line.size());
    }
    return shown;
}

bool isConnectCode(CURLcode code)
{
    switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_CONNECT:
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
        return true;
    default:
        return false;
    }
}

/// The URL as messages show it: a password may stand before the host.
std::string shownUrl(const std::string& url)
{
    const std::size_t scheme = url.find("://");
    const std::size_t start = scheme == std::string::npos ? 0 : scheme + 3;
    const std::size_t at = url.substr(0, url.find('/', start)).rfind('@');
    return at == std::string::npos || at < start ? url : url.substr(0, start) + url.substr(at + 1);
}

/// What a status that people meet with a node means to them.
std::string_view hintOf(long status)
{
    switch (status) {
    case 401:
        return " (user or password missing or wrong)";
    case 404:
        return " (nothing is served under this path; try /RPC2)";
    case 413:
        return " (the request is too long)";
    case 503:
        return " (the server has too many connections, or is stopping)";
    default:
        return "";
    }
}

} // namespace

class XmlRpcClient::Impl
{
  public:
    explicit Impl(ClientOptions options);

    MethodResponse call(const MethodCall& call);

  private:
    template <typename Argument>
    void set(CURLoption option, Argument argument);
    void setLogin();
    void setWatch();
    bool wasConnected() const;
    [[noreturn]] void failTransfer(CURLcode code) const;
    static std::size_t onBody(char* data, std::size_t size, std::size_t count, void* self);
    static int onWire(CURL*, curl_infotype type, char* data, std::size_t size, void* self);

    ClientOptions m_options;
    std::string m_shownUrl;
    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> m_curl{nullptr, &curl_easy_cleanup};
    HeaderList m_headers{nullptr, &curl_slist_free_all};
    std::array<char, CURL_ERROR_SIZE> m_reason{};
    std::string m_body;
    bool m_tooLong = false;
};

XmlRpcClient::Impl::Impl(ClientOptions options)
    : m_options(std::move(options)), m_shownUrl(shownUrl(m_options.url))
{
    initialiseCurl();
    m_curl.reset(curl_easy_init());
    if (!m_curl) {
        throw ClientError("cannot initialise the HTTP client");
    }
    // libcurl would add "Expect: 100-continue" to a long body and then wait for an answer.
    m_headers.reset(curl_slist_append(nullptr, "Content-Type: text/xml"));
    m_headers.reset(curl_slist_append(m_headers.release(), "Expect:"));
    set(CURLOPT_URL, m_options.url.c_str());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_HTTPHEADER, m_headers.get());
    set(CURLOPT_USERAGENT, "zyrctl");
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_TIMEOUT_MS, static_cast<long>(m_options.timeout.count()));
    set(CURLOPT_TCP_KEEPALIVE, 1L); // a server that has vanished is noticed during a long poll too
    set(CURLOPT_ERRORBUFFER, m_reason.data());
    set(CURLOPT_WRITEFUNCTION, &Impl::onBody);
    set(CURLOPT_WRITEDATA, static_cast<void*>(this));
    if (!m_options.caFile.empty()) {
        set(CURLOPT_CAINFO, m_options.caFile.c_str());
    }
    setLogin();
    setWatch();
}

template <typename Argument>
void XmlRpcClient::Impl::set(CURLoption option, Argument argument)
{
    const CURLcode code = curl_easy_setopt(m_curl.get(), option, argument);
    if (code != CURLE_OK) {
        throw ClientError(std::string("cannot use an option of the HTTP client: ") +
                          curl_easy_strerror(code));
    }
}

void XmlRpcClient::Impl::setLogin()
{
    if (m_options.login) {
        set(CURLOPT_HTTPAUTH, static_cast<long>(CURLAUTH_BASIC));
        set(CURLOPT_USERNAME, m_options.login->user.c_str());
        set(CURLOPT_PASSWORD, m_options.login->password.c_str());
    }
}

void XmlRpcClient::Impl::setWatch()
{
    if (m_options.watch) {
        set(CURLOPT_VERBOSE, 1L);
        set(CURLOPT_DEBUGFUNCTION, &Impl::onWire);
        set(CURLOPT_DEBUGDATA, static_cast<void*>(this));
    }
}

MethodResponse XmlRpcClient::Impl::call(const MethodCall& call)
{
    const std::string request = writeMethodCall(call);
    set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.size()));
    set(CURLOPT_POSTFIELDS, request.data());
    m_body.clear();
    m_tooLong = false;
    m_reason.front() = '\0';
    const CURLcode code = curl_easy_perform(m_curl.get());
    if (code != CURLE_OK) {
        failTransfer(code);
    }
    long status = 0;
    curl_easy_getinfo(m_curl.get(), CURLINFO_RESPONSE_CODE, &status);
    if (status != 200) {
        throw HttpStatusError(status, m_shownUrl + " answers with HTTP status " + std::to_string(status) +
                                          std::string(hintOf(status)));
    }
    try {
        return parseMethodResponse(m_body);
    } catch (const XmlRpcError& error) {
        throw ProtocolError("the answer of " + m_shownUrl + " is not XML-RPC: " + error.what());
    }
}

bool XmlRpcClient::Impl::wasConnected() const
{
    const char* address = nullptr;
    curl_easy_getinfo(m_curl.get(), CURLINFO_PRIMARY_IP, &address);
    return address != nullptr && *address != '\0';
}

void XmlRpcClient::Impl::failTransfer(CURLcode code) const
{
    const std::string reason = m_reason.front() == '\0' ? curl_easy_strerror(code) : m_reason.data();
    if (m_tooLong) {
        throw ProtocolError("the answer of " + m_shownUrl + " is longer than " +
                            std::to_string(m_options.maxResponseSize) + " bytes");
    }
    if (code == CURLE_OPERATION_TIMEDOUT) {
        throw TimeoutError("no answer from " + m_shownUrl + " within " +
                           std::to_string(m_options.timeout.count()) + " ms");
    }
    if (isConnectCode(code)) {
        throw ConnectError("cannot connect to " + m_shownUrl + ": " + reason);
    }
    // An answer that isn't HTTP at all is an unsupported protocol too.
    if (code == CURLE_URL_MALFORMAT || (code == CURLE_UNSUPPORTED_PROTOCOL && !wasConnected())) {
        throw ClientError("the URL " + m_shownUrl + " cannot be used: " + reason);
    }
    throw BrokenOffError("the exchange with " + m_shownUrl + " broke off: " + reason);
}

std::size_t XmlRpcClient::Impl::onBody(char* data, std::size_t size, std::size_t count, void* self)
{
    auto& client = *static_cast<Impl*>(self);
    const std::size_t length = size * count;
    if (client.m_body.size() + length > client.m_options.maxResponseSize) {
        client.m_tooLong = true;
        return 0;
    }
    client.m_body.append(data, length);
    return length;
}

int XmlRpcClient::Impl::onWire(CURL*, curl_infotype type, char* data, std::size_t size, void* self)
{
    const auto& watch = static_cast<Impl*>(self)->m_options.watch;
    const std::string_view bytes(data, size);
    switch (type) {
    case CURLINFO_HEADER_OUT:
        watch(ClientOptions::Wire::Sent, withoutSecrets(bytes));
        break;
    case CURLINFO_DATA_OUT:
        watch(ClientOptions::Wire::Sent, bytes);
        break;
    case CURLINFO_HEADER_IN:
    case CURLINFO_DATA_IN:
        watch(ClientOptions::Wire::Received, bytes);
        break;
    default:
        break;
    }
    return 0;
}

XmlRpcClient::XmlRpcClient(ClientOptions options) : m_impl(std::make_unique<Impl>(std::move(options))) {}

XmlRpcClient::~XmlRpcClient() = default;

MethodResponse XmlRpcClient::call(const MethodCall& call)
{
    return m_impl->call(call);
}

} // namespace zyr_gateway
