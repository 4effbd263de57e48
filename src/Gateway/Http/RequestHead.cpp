#include "RequestHead.h"

#include "GatewayTrace.h"

#include <microhttpd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstddef>
#include <cstring>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <strings.h>

namespace zyr_gateway
{

namespace
{

using Refusal = std::optional<HttpResponse>;

constexpr std::string_view kBlanks = " \t";

/// The names of the fields, in the order of `Known`.
constexpr std::array<std::string_view, 7> kKnownNames{
    "Authorization", "Content-Length", "Content-Type",     "Host",
    "Origin",        "Sec-Fetch-Site", "Transfer-Encoding"};

bool equalIgnoringCase(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool isDigits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// The characters of a token: methods and names of fields.
constexpr std::array<bool, 256> kTokenCharacters = [] {
    std::array<bool, 256> table{};
    for (const char c : std::string_view("!#$%&'*+-.^_`|~0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                         "abcdefghijklmnopqrstuvwxyz")) {
        table.at(static_cast<unsigned char>(c)) = true;
    }
    return table;
}();

bool isToken(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return kTokenCharacters[static_cast<unsigned char>(c)];
    });
}

bool isValue(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) {
        const auto code = static_cast<unsigned char>(c);
        return c == '\t' || (code >= 0x20 && code != 0x7F);
    });
}

bool isTargetCharacter(char c)
{
    return c > 0x20 && c < 0x7F;
}

/// Whether the library leaves the texts of a head where they came in, one behind the other. Later ones may
/// do otherwise, and are strict themselves.
bool areTextsInPlace()
{
    static const bool result = std::string_view(MHD_get_version()) < "0.9.76";
    return result;
}

/// The number of blanks at the beginning.
std::ptrdiff_t blanksAt(const char* text)
{
    return static_cast<std::ptrdiff_t>(std::strspn(text, kBlanks.data()));
}

/// Whether the texts make up the whole head. The library zeroes what stands between them: one byte behind the
/// method, the target and a name, two at the end of a line that ends with CR LF. What it has left out, such
/// as the rest of a line behind a zero byte, or moved, such as a name that a continued line was added to,
/// does not fit.
bool isWhole(const RequestHead& head)
{
    constexpr std::ptrdiff_t lineEnd = 2;
    const auto isAt = [](std::string_view text, const char* place) { return text.data() == place; };
    const char* const behindTarget = head.targetPlace + head.target.size();
    if (head.targetPlace != head.method.end() + 1 || !isAt(head.version, behindTarget + 1)) {
        return false;
    }
    const char* place = head.version.end() + lineEnd;
    for (const auto& [name, value] : head.fields) {
        if (!isAt(name, place)) {
            return false;
        }
        const char* const behindColon = name.end() + 1;
        if (!isAt(value, behindColon + blanksAt(behindColon))) {
            return false;
        }
        place = value.end() + lineEnd;
    }
    return place + lineEnd == head.method.data() + head.size;
}

/// The host of a `Host` value, without port and brackets; empty when the value is malformed.
std::string_view hostOf(std::string_view value)
{
    const bool bracketed = value.starts_with('[');
    const std::size_t end = bracketed ? value.find(']') : value.find(':');
    if (bracketed && end == std::string_view::npos) {
        return {};
    }
    const std::string_view host = bracketed ? value.substr(1, end - 1) : value.substr(0, end);
    const std::string_view rest =
        end == std::string_view::npos ? "" : value.substr(bracketed ? end + 1 : end);
    const bool portGood = rest.empty() || (rest.starts_with(':') && isDigits(rest.substr(1)));
    return portGood ? host : std::string_view();
}

/// A page from elsewhere can make a browser call a name that resolves to this machine; the name gives it
/// away.
Refusal refusalOfHost(const RequestHead& head, const HttpOptions& options)
{
    if (head[Known::Host].count > 1) {
        return plainResponse(400, "The request has more than one Host field; it must have one.");
    }
    if (head[Known::Host].count == 0) {
        return head.version == "HTTP/1.0"
                   ? std::nullopt
                   : Refusal(plainResponse(400, "The request has no Host field; it must have one."));
    }
    if (isLoopback(options.address) && !isLoopback(hostOf(head[Known::Host].value))) {
        return plainResponse(400, "The Host field does not name this machine; use localhost or 127.0.0.1.");
    }
    return std::nullopt;
}

/// A browser says where the page comes from that calls; programs that are no browsers say nothing. A page of
/// another site has no business here, whatever it sends.
Refusal refusalOfForeignPage(const RequestHead& head)
{
    const std::string_view site = head[Known::SecFetchSite].value;
    const bool isForeignSite =
        !site.empty() && !equalIgnoringCase(site, "same-origin") && !equalIgnoringCase(site, "none");
    const std::string_view origin = head[Known::Origin].value;
    const std::size_t scheme = origin.find("://");
    const bool isForeignOrigin = head[Known::Origin].count > 0 &&
                                 (scheme == std::string_view::npos ||
                                  !equalIgnoringCase(origin.substr(scheme + 3), head[Known::Host].value));
    if (isForeignSite || isForeignOrigin || head[Known::SecFetchSite].count > 1 ||
        head[Known::Origin].count > 1) {
        return plainResponse(403, "A page of another site may not call this server.");
    }
    return std::nullopt;
}

/// Two lengths, or a length and a coding, could be read differently by a proxy in between.
Refusal refusalOfFraming(const RequestHead& head)
{
    if (head[Known::ContentLength].count > 1) {
        return plainResponse(400, "The request has more than one Content-Length field; it must have one.");
    }
    if (head[Known::ContentLength].count == 1 && head[Known::TransferEncoding].count > 0) {
        return plainResponse(400, "The request has both a Content-Length and a Transfer-Encoding field.");
    }
    if (head[Known::ContentLength].count == 1 && !isDigits(head[Known::ContentLength].value)) {
        return plainResponse(400, "The Content-Length field is not a number.");
    }
    return std::nullopt;
}

Refusal refusalOfTarget(const RequestHead& head)
{
    if (head.path() != "/" && head.path() != "/RPC2") {
        return plainResponse(404, "Nothing is served here; call /RPC2.");
    }
    if (head.method != "POST") {
        return plainResponse(405, "Only POST is served here.");
    }
    return std::nullopt;
}

Refusal refusalOfLength(const RequestHead& head, std::size_t maxBodySize)
{
    if (head[Known::ContentLength].count == 0) {
        return plainResponse(411, "The request has no Content-Length field; chunks are not accepted.");
    }
    const auto length = bodyLength(head);
    if (!length || *length > maxBodySize) {
        return plainResponse(413, "The body is longer than " + std::to_string(maxBodySize) + " bytes.");
    }
    return std::nullopt;
}

/// The value of the `charset` parameter; empty when there is none.
std::string_view charsetOf(std::string_view contentType)
{
    for (std::size_t mark = contentType.find(';'); mark != std::string_view::npos;) {
        contentType.remove_prefix(mark + 1);
        mark = contentType.find(';');
        const std::string_view parameter = trimmed(contentType.substr(0, mark));
        const std::size_t equals = parameter.find('=');
        if (equals == std::string_view::npos || !equalIgnoringCase(parameter.substr(0, equals), "charset")) {
            continue;
        }
        std::string_view charset = parameter.substr(equals + 1);
        if (charset.size() >= 2 && charset.starts_with('"') && charset.ends_with('"')) {
            charset = charset.substr(1, charset.size() - 2);
        }
        return charset;
    }
    return {};
}

Refusal refusalOfContentType(const RequestHead& head)
{
    const std::string_view contentType = head[Known::ContentType].value;
    const std::string type = mediaType(contentType);
    if (head[Known::ContentType].count != 1 || (type != "text/xml" && type != "application/xml")) {
        return plainResponse(415, "The Content-Type must be text/xml or application/xml.");
    }
    const std::string_view charset = charsetOf(contentType);
    if (!charset.empty() && !equalIgnoringCase(charset, "utf-8") && !equalIgnoringCase(charset, "us-ascii")) {
        return plainResponse(415, "The charset must be utf-8 or us-ascii.");
    }
    return std::nullopt;
}

} // namespace

void RequestHead::add(std::string_view name, std::string_view value)
{
    fields.emplace_back(name, value);
    const auto* const row = std::ranges::find_if(
        kKnownNames, [&](std::string_view candidate) { return equalIgnoringCase(candidate, name); });
    if (row == kKnownNames.end()) {
        return;
    }
    Found& found = known[static_cast<std::size_t>(row - kKnownNames.begin())];
    if (++found.count == 1) {
        found.value = trimmed(value);
    }
}

std::string_view defectOf(const RequestHead& head)
{
    const bool isFieldNamed = std::all_of(head.fields.begin(), head.fields.end(),
                                          [](const auto& field) { return isToken(field.first); });
    if (!isToken(head.method) || !std::all_of(head.target.begin(), head.target.end(), &isTargetCharacter)) {
        return "The request line is not of the form METHOD PATH HTTP/1.1.";
    }
    if (!isFieldNamed) {
        return "A header line is not a name with a colon right behind it.";
    }
    for (const auto& [name, value] : head.fields) {
        if (!isValue(value)) {
            return "The value of a header field holds a control character.";
        }
    }
    if (areTextsInPlace() && !isWhole(head)) {
        return "The header holds a continued line, a zero byte, or a line that does not end with CR LF.";
    }
    return {};
}

bool isLoopback(std::string_view address)
{
    const std::string text(address);
    in_addr v4{};
    in6_addr v6{};
    if (inet_pton(AF_INET, text.c_str(), &v4) == 1) {
        return (ntohl(v4.s_addr) >> 24U) == IN_LOOPBACKNET;
    }
    if (inet_pton(AF_INET6, text.c_str(), &v6) == 1) {
        return IN6_IS_ADDR_LOOPBACK(&v6);
    }
    return equalIgnoringCase(address, "localhost");
}

std::string mediaType(std::string_view contentType)
{
    std::string type(trimmed(contentType.substr(0, contentType.find(';'))));
    std::transform(type.begin(), type.end(), type.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return type;
}

std::optional<std::uint64_t> bodyLength(const RequestHead& head)
{
    const std::string_view digits = head[Known::ContentLength].value;
    std::uint64_t length = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), length);
    return isDigits(digits) && result.ec == std::errc{} ? std::optional(length) : std::nullopt;
}

std::optional<HttpResponse> refusalOf(const RequestHead& head, const HttpOptions& options, bool needsLogin)
{
    if (head.size > options.maxHeaderSize) {
        return plainResponse(431, "The header is longer than " + std::to_string(options.maxHeaderSize) +
                                      " bytes.");
    }
    if (const std::string_view defect = defectOf(head); !defect.empty()) {
        return plainResponse(400, defect);
    }
    if (auto refusal = refusalOfHost(head, options)) {
        return refusal;
    }
    if (auto refusal = refusalOfFraming(head)) {
        return refusal;
    }
    if (auto refusal = refusalOfForeignPage(head)) {
        return refusal;
    }
    if (needsLogin && head[Known::Authorization].count != 1) {
        return plainResponse(401, "A user and a password are necessary.");
    }
    if (auto refusal = refusalOfTarget(head)) {
        return refusal;
    }
    if (auto refusal = refusalOfLength(head, options.maxBodySize)) {
        return refusal;
    }
    return refusalOfContentType(head);
}

std::string forTrace(std::string_view text)
{
    constexpr std::size_t longest = 64;
    std::string shown(text.substr(0, longest));
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c < 0x20 || c == 0x7F || c == '"'; }, '?');
    return "\"" + shown + (text.size() > longest ? "\"..." : "\"");
}

HttpResponse plainResponse(unsigned status, std::string_view text)
{
    return {status, "text/plain; charset=utf-8", std::string(text) + "\n"};
}

HttpResponse tooMuchInWork()
{
    return plainResponse(503, "There is too much in work.");
}

} // namespace zyr_gateway
