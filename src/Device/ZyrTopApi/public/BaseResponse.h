#pragma once

#include "ETIResult.h"
#include "Export.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zyr_top_api
{

class TextWriter;

/// Root of all responses: the outcome of a command.
class ZYR_EXPORT BaseResponse
{
  public:
    /// Success: result 0, no fault.
    BaseResponse() = default;

    /// Stores the result and derives the fault from it. Below 0x8000 there is no fault and the text is
    /// dropped; from there the text is kept and the fault code is 4 (0x8000 to 0x9FFF), 3 (0xA000 to 0xA0FF),
    /// 2 (0xA100 to 0xA1FF) or 1 (0xA200 and above).
    BaseResponse(ETIResult result, const std::string& text);

    virtual ~BaseResponse() = default;

    /// The response as text, for the trace.
    virtual std::string printResponse() const;

    // A declared destructor would turn moves into copies.
    BaseResponse(const BaseResponse&) = default;
    BaseResponse(BaseResponse&&) = default;
    BaseResponse& operator=(const BaseResponse&) = default;
    BaseResponse& operator=(BaseResponse&&) = default;

    /// Writes what `printResponse` returns.
    void print(TextWriter& text) const;

    ETIResult tiResult = eTI_S_OK;
    std::int32_t faultCode = 0; ///< 0 without a fault; 1 to 4 by the range of the result
    std::string faultString;    ///< empty without a fault
};

/// Response of every command that returns no data.
class ZYR_EXPORT StandardResponse : public BaseResponse
{
  public:
    /// Success. Inline also where the compiler saves space, since every call of the dispatcher makes one.
    [[gnu::always_inline]] StandardResponse() = default;
    using BaseResponse::BaseResponse;

    std::string printResponse() const override;
    void print(TextWriter& text) const;

    /// Carried along but neither set nor printed by the library.
    std::string additionalText;
};

/// True if the response reports no fault and so prints its data.
inline bool isFaultless(const BaseResponse& response)
{
    return response.faultCode < 1;
}

/// Writes "tiResult: <name>, faultCode: <n>, faultString: <text>": all that a failed response prints.
ZYR_EXPORT void printResultLine(const BaseResponse& response, TextWriter& text);

/// Turns a response into a failure, or a success with a result of its own, by the rule of its constructor.
/// Data that it already holds stays.
ZYR_EXPORT void setResult(BaseResponse& response, ETIResult result, std::string_view text);

} // namespace zyr_top_api
