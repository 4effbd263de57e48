#include "RequestHead.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <strings.h>

namespace zyr_gateway
{

namespace
{

using Refusal = std::optional<HttpResponse>;

constexpr std::string_view kBlanks = " \t";

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
    if (head.count("Host") > 1) {
        return plainResponse(400, "The request has more than one Host field; it must have one.");
    }
    if (head.count("Host") == 0 && head.version == "HTTP/1.0") {
        return std::nullopt;
    }
    if (isLoopback(options.address) && !isLoopback(hostOf(trimmed(head.value("Host"))))) {
        return plainResponse(400, "The Host field does not name this machine; use localhost or 127.0.0.1.");
    }
    return std::nullopt;
}

/// Two lengths, or a length and a coding, could be read differently by a proxy in between.
Refusal refusalOfFraming(const RequestHead& head)
{
    if (head.count("Content-Length") > 1) {
        return plainResponse(400, "The request has more than one Content-Length field; it must have one.");
    }
    if (head.count("Content-Length") == 1 && head.count("Transfer-Encoding") > 0) {
        return plainResponse(400, "The request has both a Content-Length and a Transfer-Encoding field.");
    }
    if (head.count("Content-Length") == 1 && !isDigits(trimmed(head.value("Content-Length")))) {
        return plainResponse(400, "The Content-Length field is not a number.");
    }
    return std::nullopt;
}

Refusal refusalOfTarget(const RequestHead& head)
{
    if (head.path != "/" && head.path != "/RPC2") {
        return plainResponse(404, "Nothing is served here; call /RPC2.");
    }
    if (head.method != "POST") {
        return plainResponse(405, "Only POST is served here.");
    }
    return std::nullopt;
}

Refusal refusalOfLength(const RequestHead& head, std::size_t maxBodySize)
{
    if (head.count("Content-Length") == 0) {
        return plainResponse(411, "The request has no Content-Length field; chunks are not accepted.");
    }
    const std::string_view digits = trimmed(head.value("Content-Length"));
    std::uint64_t length = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), length);
    if (result.ec != std::errc{} || length > maxBodySize) {
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
    const std::string_view contentType = head.value("Content-Type");
    const std::string type = mediaType(contentType);
    if (head.count("Content-Type") != 1 || (type != "text/xml" && type != "application/xml")) {
        return plainResponse(415, "The Content-Type must be text/xml or application/xml.");
    }
    const std::string_view charset = charsetOf(contentType);
    if (!charset.empty() && !equalIgnoringCase(charset, "utf-8") && !equalIgnoringCase(charset, "us-ascii")) {
        return plainResponse(415, "The charset must be utf-8 or us-ascii.");
    }
    return std::nullopt;
}

} // namespace

std::size_t RequestHead::count(std::string_view name) const
{
    return static_cast<std::size_t>(std::count_if(fields.begin(), fields.end(), [&](const auto& field) {
        return equalIgnoringCase(field.first, name);
    }));
}

std::string_view RequestHead::value(std::string_view name) const
{
    const auto field = std::find_if(fields.begin(), fields.end(), [&](const auto& candidate) {
        return equalIgnoringCase(candidate.first, name);
    });
    return field == fields.end() ? std::string_view() : std::string_view(field->second);
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

std::optional<HttpResponse> refusalOf(const RequestHead& head, const HttpOptions& options)
{
    if (head.size > options.maxHeaderSize) {
        return plainResponse(431, "The header is longer than " + std::to_string(options.maxHeaderSize) +
                                      " bytes.");
    }
    if (auto refusal = refusalOfHost(head, options)) {
        return refusal;
    }
    if (auto refusal = refusalOfFraming(head)) {
        return refusal;
    }
    if (options.credentials && head.count("Authorization") != 1) {
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

HttpResponse plainResponse(unsigned status, std::string_view text)
{
    return {status, "text/plain; charset=utf-8", std::string(text) + "\n"};
}

} // namespace zyr_gateway
