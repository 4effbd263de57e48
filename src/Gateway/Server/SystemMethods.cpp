#include "RecordError.h"
#include "Reference.h"
#include "XmlRpcServer.h"

#include <cstddef>
#include <utility>

// The introspection methods of `XmlRpcServer`.

namespace zyr_gateway
{

namespace
{

using zyr_registration::RecordError;

constexpr std::size_t kMostCalls = 100;
constexpr const char* kMulticall = "system.multicall";

// The one string parameter of a method.
const std::string& onlyString(const std::string& method, const std::vector<Value>& params)
{
    if (params.size() != 1 || !params.front().is_string()) {
        throw RecordError(zyr_top_api::eTI_E_PARAMETER_TYPE_INVALID,
                          method + ": it takes one string, the name of a method");
    }
    return params.front().get_ref<const std::string&>();
}

void takeNothing(const std::string& method, const std::vector<Value>& params)
{
    if (!params.empty()) {
        throw RecordError(zyr_top_api::eTI_E_PARAMETER_INVALID, method + ": it takes no parameters");
    }
}

Value capabilities()
{
    const auto capability = [](const char* url, int version) {
        return Value{{"specUrl", url}, {"specVersion", version}};
    };
    return {{"xmlrpc", capability("http://www.xmlrpc.com/spec", 1)},
            {"nil", capability("http://ontosys.com/xml-rpc/extensions.php", 1)},
            {"introspection", capability("http://xmlrpc-c.sourceforge.net/introspection.html", 1)},
            {"system.multicall", capability("http://mirrors.talideon.com/articles/multicall.html", 1)}};
}

// What a call inside "system.multicall" consists of.
MethodCall callOf(const Value& call)
{
    const bool isCall = call.is_object() && call.size() == 2 && call.contains("methodName") &&
                        call["methodName"].is_string() && call.contains("params") &&
                        call["params"].is_array();
    if (!isCall) {
        throw RecordError(
            zyr_top_api::eTI_E_PARAMETER_TYPE_INVALID,
            "system.multicall: a call is no struct of methodName, a string, and params, an array");
    }
    return {call["methodName"].get<std::string>(), call["params"].get<std::vector<Value>>()};
}

} // namespace

void XmlRpcServer::addSystemMethod(std::string name, std::string help, Value signatures,
                                   std::function<Value(const Params&)> call)
{
    add(std::move(name), {std::move(help), std::move(signatures), Value(), false,
                          [call = std::move(call)](const Params& params) {
                              return Answer{call(params), 0, {}};
                          }});
}

void XmlRpcServer::addSystemMethods()
{
    const auto signature = [](std::initializer_list<const char*> types) {
        return Value::array({Value(std::vector<std::string>(types.begin(), types.end()))});
    };
    addSystemMethod("system.listMethods", "The names of all methods, sorted.", signature({"array"}),
                    [this](const Params& params) {
                        takeNothing("system.listMethods", params);
                        Value names = Value::array();
                        for (const auto& [name, entry] : m_methods) {
                            names.push_back(name);
                        }
                        return names;
                    });
    addSystemMethod("system.methodSignature",
                    "The signatures of a method: arrays of type names, that of the result first.",
                    signature({"array", "string"}), [this](const Params& params) {
                        return method(onlyString("system.methodSignature", params)).signatures;
                    });
    addSystemMethod("system.methodHelp", "What a method does, takes and gives, for people.",
                    signature({"string", "string"}), [this](const Params& params) {
                        return Value(method(onlyString("system.methodHelp", params)).help);
                    });
    addSystemMethod("system.getCapabilities", "The extensions of XML-RPC that this server has.",
                    signature({"struct"}), [](const Params& params) {
                        takeNothing("system.getCapabilities", params);
                        return capabilities();
                    });
    addSystemMethod(
        kMulticall,
        "Makes up to 100 calls in order. Each is a struct of methodName and params; each answer is an "
        "array of the one value, or a struct of faultCode and faultString. Neither this method nor a "
        "long poll can be called so.",
        signature({"array", "array"}), [this](const Params& params) { return multicall(params); });
    addSystemMethod(
        "zyr.describe",
        "Describes a method by its name, for programs: a struct of name, help, fields of request and "
        "response, faults and more. Without a name it describes all methods that take a struct: a struct "
        "of methods, an array of such structs, and hash.",
        Value::array({Value::array({"struct"}), Value::array({"struct", "string"})}),
        [this](const Params& params) { return describe(params); });
    addSystemMethod("zyr.describeHash",
                    "The hash of all that zyr.describe tells, a string: who knows it needs not ask again.",
                    signature({"string"}), [this](const Params& params) {
                        takeNothing("zyr.describeHash", params);
                        return Value(zyr_registration::hashOf(descriptions()));
                    });
}

Value XmlRpcServer::describe(const Params& params) const
{
    if (!params.empty()) {
        const std::string& name = onlyString("zyr.describe", params);
        const Value& description = method(name).description;
        if (description.is_null()) {
            throw RecordError(zyr_top_api::eTI_E_PARAMETER_INVALID,
                              "zyr.describe: " + name + " takes no struct, system.methodHelp tells of it");
        }
        return description;
    }
    Value all = descriptions();
    const std::string hash = zyr_registration::hashOf(all);
    return {{"hash", hash}, {"methods", std::move(all)}};
}

Value XmlRpcServer::descriptions() const
{
    Value described = Value::array();
    for (const auto& [name, entry] : m_methods) {
        if (!entry.description.is_null()) {
            described.push_back(entry.description);
        }
    }
    return described;
}

Value XmlRpcServer::multicall(const Params& params)
{
    if (params.size() != 1 || !params.front().is_array()) {
        throw RecordError(zyr_top_api::eTI_E_PARAMETER_TYPE_INVALID,
                          "system.multicall: it takes one array, of calls");
    }
    const Value& calls = params.front();
    if (calls.size() > kMostCalls) {
        throw RecordError(zyr_top_api::eTI_E_PARAMETER_INVALID,
                          "system.multicall: " + std::to_string(calls.size()) +
                              " calls are given, it takes at most 100");
    }
    Value answers = Value::array();
    for (const Value& call : calls) {
        answers.push_back(callOfMulticall(call));
    }
    return answers;
}

Value XmlRpcServer::callOfMulticall(const Value& given)
{
    const auto faultOf = [](std::int32_t code, const std::string& text) {
        return Value{{"faultCode", code}, {"faultString", text}};
    };
    try {
        const MethodCall wanted = callOf(given);
        if (wanted.method == kMulticall || method(wanted.method).isLongPoll) {
            throw RecordError(zyr_top_api::eTI_E_PARAMETER_INVALID,
                              wanted.method + ": not to be called by system.multicall");
        }
        const Answer answer = call(wanted);
        return answer.faultCode > 0 ? faultOf(answer.faultCode, answer.faultText)
                                    : Value::array({answer.value});
    } catch (const RecordError& error) {
        return faultOf(zyr_top_api::BaseResponse(error.result(), {}).faultCode, error.what());
    }
}

} // namespace zyr_gateway
