#pragma once

#include "BaseResponse.h"
#include "Log.h"
#include "TextWriter.h"

#include <string>
#include <string_view>

namespace zyr_top_api
{

/// The text of a failure, built from its pieces.
template <class... Pieces>
std::string failureText(const Pieces&... pieces)
{
    std::string text;
    TextWriter writer(text);
    (writer << ... << pieces);
    return text;
}

/// What a failure says in the trace and in the response; mostly the same.
struct FailureTexts
{
    FailureTexts(std::string_view both) : logged(both), answered(both) {}
    FailureTexts(const char* both) : FailureTexts(std::string_view(both)) {}
    FailureTexts(const std::string& both) : FailureTexts(std::string_view(both)) {}
    FailureTexts(std::string_view log, std::string_view answer) : logged(log), answered(answer) {}

    std::string_view logged;
    std::string_view answered;
};

/// Fails a response with `eTI_E_FAILED`, and logs the failure at level 1 in the name of the calling function.
inline void fail(BaseResponse& response, const TylTrace& trace, const FailureTexts& texts,
                 const char* file = __builtin_FILE(), int line = __builtin_LINE(),
                 const char* function = __builtin_FUNCTION())
{
    log(trace, 1, texts.logged, file, line, function);
    setResult(response, eTI_E_FAILED, texts.answered);
}

/// The same with a response of its own.
inline StandardResponse failedResponse(const TylTrace& trace, const FailureTexts& texts,
                                       const char* file = __builtin_FILE(), int line = __builtin_LINE(),
                                       const char* function = __builtin_FUNCTION())
{
    StandardResponse response;
    fail(response, trace, texts, file, line, function);
    return response;
}

} // namespace zyr_top_api
