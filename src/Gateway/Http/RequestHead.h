#pragma once

#include "HttpServer.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zyr_gateway
{

/// The header fields that the server looks at.
enum class Known
{
    Authorization,
    ContentLength,
    ContentType,
    Host,
    Origin,
    SecFetchSite,
    TransferEncoding
};

/// A request as it stands before its body: request line and header fields. The texts belong to the HTTP
/// library, which keeps them until the request has been answered.
struct RequestHead
{
    std::string_view method;
    std::string_view version;                                          ///< such as "HTTP/1.1"
    std::vector<std::pair<std::string_view, std::string_view>> fields; ///< in the order of the request
    std::size_t size = 0;                                              ///< bytes of the whole head
    std::string_view target;           ///< path and query as they were sent; a copy
    const char* targetPlace = nullptr; ///< where the library has them

    /// The target without its query.
    [[nodiscard]] std::string_view path() const { return target.substr(0, target.find('?')); }
    /// Adds a field.
    void add(std::string_view name, std::string_view value);

    /// How often a field stands there, and its first value without blanks round it; names are compared
    /// without regard to case.
    struct Found
    {
        unsigned count = 0;
        std::string_view value;
    };
    [[nodiscard]] const Found& operator[](Known field) const
    {
        return known[static_cast<std::size_t>(field)];
    }

    std::array<Found, 7> known; ///< by `Known`
};

/// What is malformed, a sentence; empty when all is well. Names of fields are tokens and values hold no
/// control characters, and every byte of the head is part of something: no line is continued on the next one,
/// none is cut by a zero byte, and all end with CR LF.
[[nodiscard]] std::string_view defectOf(const RequestHead& head);

/// Whether the address stands for this machine only: 127.0.0.0/8, ::1, or `localhost`.
[[nodiscard]] bool isLoopback(std::string_view address);

/// The media type of a `Content-Type` value, in small letters and without its parameters.
[[nodiscard]] std::string mediaType(std::string_view contentType);

/// The answer to a request that breaks a rule that needs neither its body nor a password check; nothing when
/// the request is in order.
/// @param needsLogin whether a user and a password are necessary
[[nodiscard]] std::optional<HttpResponse> refusalOf(const RequestHead& head, const HttpOptions& options,
                                                    bool needsLogin);

/// The length of the body that the head announces; nothing when there is none, or no number of 64 bits.
[[nodiscard]] std::optional<std::uint64_t> bodyLength(const RequestHead& head);

/// An answer of the server's own: a status and a line of text.
[[nodiscard]] HttpResponse plainResponse(unsigned status, std::string_view text);

/// The answer when more is held than `HttpOptions::maxHeld`.
[[nodiscard]] HttpResponse tooMuchInWork();

} // namespace zyr_gateway
