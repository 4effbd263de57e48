#pragma once

#include "BaseResponse.h"
#include "CallSite.h"
#include "Log.h"
#include "TextWriter.h"

#include <string>
#include <string_view>
#include <type_traits>

namespace zyr_top_api
{

namespace detail
{

/// What a piece of a text goes as, so that texts of the same kinds of pieces share their code.
template <class Piece>
using PassedPiece =
    std::conditional_t<std::is_convertible_v<const Piece&, std::string_view>, std::string_view, Piece>;

template <class... Pieces>
[[gnu::noinline]] std::string joined(Pieces... pieces)
{
    TextWriter text;
    (text << ... << pieces);
    return text.string();
}

} // namespace detail

/// The text of a failure, built from its pieces.
template <class... Pieces>
std::string failureText(const Pieces&... pieces)
{
    return detail::joined<detail::PassedPiece<Pieces>...>(pieces...);
}

// The texts are parameters and nothing else, so that a temporary outlives every use of it.

/// Fails a response and logs the failure at level 1, the text in the trace another one than the response's.
inline void fail(BaseResponse& response, const TylTrace& trace, std::string_view logged,
                 std::string_view answered, ETIResult result = eTI_E_FAILED, CallSite at = CallSite())
{
    log(trace, 1, logged, at);
    setResult(response, result, answered);
}

/// Fails a response and logs the failure at level 1, both with the same text.
inline void fail(BaseResponse& response, const TylTrace& trace, std::string_view text,
                 ETIResult result = eTI_E_FAILED, CallSite at = CallSite())
{
    fail(response, trace, text, text, result, at);
}

/// `fail` with a response that holds nothing else.
template <class Response = StandardResponse>
Response failedResponse(const TylTrace& trace, std::string_view logged, std::string_view answered,
                        ETIResult result = eTI_E_FAILED, CallSite at = CallSite())
{
    Response response;
    fail(response, trace, logged, answered, result, at);
    return response;
}

/// `fail` with a response that holds nothing else, trace and response with the same text.
template <class Response = StandardResponse>
Response failedResponse(const TylTrace& trace, std::string_view text, ETIResult result = eTI_E_FAILED,
                        CallSite at = CallSite())
{
    return failedResponse<Response>(trace, text, text, result, at);
}

/// A response that fails without a line in the trace and holds nothing else.
template <class Response = StandardResponse>
Response refusal(ETIResult result, std::string_view text)
{
    Response response;
    setResult(response, result, text);
    return response;
}

} // namespace zyr_top_api
