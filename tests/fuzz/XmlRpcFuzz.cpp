// Feeds documents to the readers of calls and responses. What is accepted must be written and read again
// without a change; what is not must be refused with the one kind of error that callers know.

#include "Codec.h"
#include "Fuzz.h"

#include <string>
#include <string_view>

using namespace zyr_gateway;
using zyr_fuzz::require;

namespace
{

/// The value as it comes out of a document that is written of it: what is only read, base64 and dates, is
/// left out.
Value carriable(const Value& value)
{
    if (value.is_binary()) {
        return nullptr;
    }
    if (value.is_string()) {
        return carriableText(value.get_ref<const std::string&>());
    }
    Value copy = value;
    if (value.is_array()) {
        for (Value& element : copy) {
            element = carriable(element);
        }
    } else if (value.is_object()) {
        for (auto& [name, member] : copy.get_ref<Value::object_t&>()) {
            member = carriable(member);
        }
    }
    return copy;
}

void checkCall(std::string_view document)
{
    MethodCall call;
    try {
        call = parseMethodCall(document);
    } catch (const XmlRpcError&) {
        return;
    }
    MethodCall expected = call;
    for (Value& param : expected.params) {
        param = carriable(param);
    }
    require(parseMethodCall(writeMethodCall(call)) == expected, "a call reads back the same", document);
}

void checkResponse(std::string_view document)
{
    MethodResponse response;
    try {
        response = parseMethodResponse(document);
    } catch (const XmlRpcError&) {
        return;
    }
    const std::string written = response.fault ? writeFault(response.fault->code, response.fault->text)
                                               : writeResponse(response.value);
    MethodResponse expected = response;
    expected.value = carriable(expected.value);
    if (expected.fault) {
        expected.fault->text = carriableText(expected.fault->text);
    }
    require(parseMethodResponse(written) == expected, "a response reads back the same", document);
}

} // namespace

void zyr_fuzz::consume(std::string_view input)
{
    checkCall(input);
    checkResponse(input);
}
