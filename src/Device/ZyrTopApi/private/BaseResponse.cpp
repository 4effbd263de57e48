#include "BaseResponse.h"

#include "ResultLaw.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

std::int32_t faultCodeOf(ETIResult result)
{
    if (!failed(result)) {
        return 0;
    }
    if (result < eTI_E_REQUIRED_PARAMETER_INVALID) {
        return 4;
    }
    if (result < eTI_E_INVALID_ARGUMENT) {
        return 3;
    }
    return result < eTI_E_METHOD_UNKNOWN ? 2 : 1;
}

} // namespace

BaseResponse::BaseResponse(ETIResult result, const std::string& text)
{
    setResult(*this, result, text);
}

std::string BaseResponse::printResponse() const
{
    return printed(*this);
}

void BaseResponse::print(TextWriter& text) const
{
    text << "Sent\n";
}

std::string StandardResponse::printResponse() const
{
    return printed(*this);
}

void StandardResponse::print(TextWriter& text) const
{
    text << "StandardResponse Sent\n";
}

void printResultLine(const BaseResponse& response, TextWriter& text)
{
    text << "tiResult: " << etiResultToString(response.tiResult) << ", faultCode: " << response.faultCode
         << ", faultString: " << response.faultString;
}

void setResult(BaseResponse& response, ETIResult result, std::string_view text)
{
    response.tiResult = result;
    response.faultCode = faultCodeOf(result);
    if (failed(result)) {
        response.faultString = text;
    } else {
        response.faultString.clear();
    }
}

} // namespace zyr_top_api
