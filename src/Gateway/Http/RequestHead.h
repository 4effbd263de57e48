#pragma once

#include "HttpServer.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zyr_gateway
{

/// A request as it stands before its body: request line and header fields.
struct RequestHead
{
    std::string method;
    std::string path;
    std::string version;                                     ///< such as "HTTP/1.1"
    std::vector<std::pair<std::string, std::string>> fields; ///< in the order of the request
    std::size_t size = 0;                                    ///< bytes of the whole head

    /// How often the field stands there; names are compared without regard to case.
    [[nodiscard]] std::size_t count(std::string_view name) const;
    /// The field's first value; empty when it is missing.
    [[nodiscard]] std::string_view value(std::string_view name) const;
};

/// Whether the address stands for this machine only: 127.0.0.0/8, ::1, or `localhost`.
[[nodiscard]] bool isLoopback(std::string_view address);

/// The media type of a `Content-Type` value, in small letters and without its parameters.
[[nodiscard]] std::string mediaType(std::string_view contentType);

/// The answer to a request that breaks a rule that needs neither its body nor a password check; nothing when
/// the request is in order.
[[nodiscard]] std::optional<HttpResponse> refusalOf(const RequestHead& head, const HttpOptions& options);

/// An answer of the server's own: a status and a line of text.
[[nodiscard]] HttpResponse plainResponse(unsigned status, std::string_view text);

} // namespace zyr_gateway
