#include "RecordError.h"
#include "Reference.h"
#include "ServerParts.h"
#include "SystemMethodNotes.h"
#include "XmlRpcServer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <iterator>
#include <new>
#include <optional>
#include <sstream>
#include <utility>

// The introspection methods of `XmlRpcServer`.

namespace zyr_gateway
{

namespace
{

using zyr_registration::PlainMethodNotes;
using zyr_registration::RecordError;
using zyr_registration::ValueSink;

constexpr std::size_t kMostCalls = 100;

constexpr std::array kNotes{
    PlainMethodNotes{"system.getCapabilities", "The extensions of XML-RPC that this server has.", {"struct"}},
    PlainMethodNotes{"system.listMethods", "The names of all methods, sorted.", {"array"}},
    PlainMethodNotes{
        "system.methodHelp", "What a method does, takes and gives, for people.", {"string string"}},
    PlainMethodNotes{"system.methodSignature",
                     "The signatures of a method: arrays of type names, that of the result first.",
                     {"array string"}},
    PlainMethodNotes{
        kMulticall,
        "Makes up to 100 calls in order. Each is a struct of methodName and params; each answer is an "
        "array of the one value, or a struct of faultCode and faultString. Neither this method nor a "
        "long poll can be called so. All answers together have 8 MiB at the most.",
        {"array array"}},
    PlainMethodNotes{
        "zyr.describe",
        "Describes a method by its name, for programs: a struct of name, help, fields of request and "
        "response, faults and more. Without a name it describes all methods that take a struct: a struct "
        "of methods, an array of such structs, and hash.",
        {"struct", "struct string"}},
    PlainMethodNotes{"zyr.describeHash",
                     "The hash of all that zyr.describe tells, a string: who knows it needs not ask again.",
                     {"string"}},
};

// The signatures as arrays of type names.
Value signaturesOf(const PlainMethodNotes& notes)
{
    Value signatures = Value::array();
    for (const std::string_view signature : notes.signatures) {
        std::istringstream words{std::string(signature)};
        const std::vector<std::string> types{std::istream_iterator<std::string>(words), {}};
        if (!types.empty()) {
            signatures.push_back(types);
        }
    }
    return signatures;
}

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

std::span<const PlainMethodNotes> systemMethodNotes()
{
    return kNotes;
}

void XmlRpcServer::addSystemMethod(std::string_view name, std::function<Value(const Params&)> call,
                                   Effort effort)
{
    const PlainMethodNotes& notes = *std::ranges::find(kNotes, name, &PlainMethodNotes::name);
    add(std::string(name), {std::string(notes.help), signaturesOf(notes), Value(), effort, false,
                            [call = std::move(call)](const Params& params, ValueSink& sink) {
                                sink.value(call(params));
                                return Outcome{};
                            }});
}

void XmlRpcServer::addSystemMethods()
{
    addSystemMethod("system.getCapabilities", [](const Params& params) {
        takeNothing("system.getCapabilities", params);
        return capabilities();
    });
    addSystemMethod("system.listMethods", [this](const Params& params) {
        takeNothing("system.listMethods", params);
        Value names = Value::array();
        for (const auto& [name, entry] : m_methods) {
            names.push_back(name);
        }
        return names;
    });
    addSystemMethod("system.methodHelp", [this](const Params& params) {
        return Value(method(onlyString("system.methodHelp", params)).help);
    });
    addSystemMethod("system.methodSignature", [this](const Params& params) {
        return method(onlyString("system.methodSignature", params)).signatures;
    });
    // Taken before it gets here, see `takeMulticall`.
    addSystemMethod(kMulticall, [](const Params&) { return Value(); });
    addSystemMethod(
        "zyr.describe", [this](const Params& params) { return describe(params); }, Effort::Big);
    addSystemMethod("zyr.describeHash", [this](const Params& params) {
        takeNothing("zyr.describeHash", params);
        return m_described.at("hash");
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
    return m_described;
}

// What "zyr.describe" tells of all methods that have a description.
Value XmlRpcServer::descriptions() const
{
    Value described = Value::array();
    for (const auto& [name, entry] : m_methods) {
        if (!entry.description.is_null()) {
            described.push_back(entry.description);
        }
    }
    const std::string hash = zyr_registration::hashOf(described);
    return {{"hash", hash}, {"methods", std::move(described)}};
}

// The calls of one "system.multicall". Each waits for its turn like a call that comes alone, and holds no
// thread meanwhile; what is prompt is made among the big ones, so that not all multicalls grow at once. The
// answers are written as they come.
class XmlRpcServer::Multicall : public std::enable_shared_from_this<Multicall>
{
  public:
    Multicall(XmlRpcServer& server, Value calls, HttpServer::Answer answer, std::size_t room)
        : m_server(server), m_calls(std::move(calls)), m_answer(std::move(answer)), m_room(room),
          m_share(server.m_multicalls)
    {
        m_document.writer().beginArray();
    }

    // Where a call is made.
    enum class Place
    {
        Dispatcher, // by turns, what is dispatched
        BigOnes,    // one multicall after the other, what is prompt
        LongOnes    // what may wait for long
    };

    // Makes the calls that are left as far as they are made here, and has the next one made in its place; or
    // answers behind the last one.
    // @param here  none: in no place yet
    void goOn(std::optional<Place> here) noexcept
    {
        try {
            while (m_next < m_calls.size()) {
                if (m_server.m_isStopping) {
                    return refuse("The server is stopping.");
                }
                if (!m_share.set(m_room + m_document.size())) {
                    return refuse("There is too much in work.");
                }
                Next next = nextCall();
                if (here != Place::BigOnes || next.place != here) {
                    return hand(std::move(next));
                }
                make(next);
            }
            m_document.writer().endArray();
            m_answer({200, "text/xml", m_document.finish()});
        } catch (...) {
            endWith(std::current_exception());
        }
    }

  private:
    // A call that is to be made, or its refusal.
    struct Next
    {
        MethodCall call;
        const Method* called = nullptr;
        Outcome refusal;
        Place place = Place::BigOnes;
    };

    Next nextCall() const
    {
        Next result;
        try {
            result.call = callOf(m_calls[m_next]);
            const Method& called = m_server.method(result.call.method);
            result.called = &called;
            if (result.call.method == kMulticall || called.effort == Effort::LongPoll) {
                throw RecordError(zyr_top_api::eTI_E_PARAMETER_INVALID,
                                  result.call.method + ": not to be called by system.multicall");
            }
            if (called.isDispatched) {
                result.place = Place::Dispatcher;
            } else if (called.effort == Effort::Long) {
                result.place = Place::LongOnes;
            }
        } catch (const RecordError& error) {
            const zyr_top_api::BaseResponse fault(error.result(), error.what());
            result.refusal = {fault.faultCode, fault.faultString};
        }
        return result;
    }

    void hand(Next next)
    {
        const Place place = next.place;
        auto job = [self = shared_from_this(), next = std::make_shared<const Next>(std::move(next))] {
            self->makeAndGoOn(*next);
        };
        switch (place) {
        case Place::Dispatcher:
            m_server.m_dispatcher.goOn(std::move(job));
            break;
        case Place::BigOnes:
            m_server.m_bigOnes.goOn(std::move(job));
            break;
        case Place::LongOnes:
            m_server.m_longOnes.run(std::move(job));
            break;
        }
    }

    void make(const Next& next)
    {
        ValueWriter& writer = m_document.writer();
        Outcome outcome = next.refusal;
        const ValueWriter::Mark begin = writer.mark();
        if (outcome.faultCode == 0) {
            writer.beginArray();
            outcome = m_server.call(*next.called, next.call, writer);
        }
        if (outcome.faultCode == 0) {
            writer.endArray();
        } else {
            writer.goBackTo(begin);
            writer.value({{"faultCode", outcome.faultCode}, {"faultString", outcome.faultText}});
        }
        writer.requireShort();
        ++m_next;
    }

    void makeAndGoOn(const Next& next) noexcept
    {
        try {
            make(next);
        } catch (...) {
            return endWith(std::current_exception());
        }
        goOn(next.place);
    }

    void refuse(const std::string& text) const { m_answer({503, "text/plain; charset=utf-8", text + "\n"}); }

    // An answer that cannot be given either is let fall, which answers as well.
    void endWith(const std::exception_ptr& error) noexcept
    {
        try {
            std::rethrow_exception(error);
        } catch (const DocumentTooLong&) {
            attempt([&] {
                const std::string text =
                    "eTI_E_FAILED: system.multicall: the answers are longer than 8 MiB with that of call " +
                    std::to_string(m_next + 1) + ", which was the last one made";
                const zyr_top_api::BaseResponse fault(zyr_top_api::eTI_E_FAILED, text);
                m_answer({200, "text/xml", writeFault(fault.faultCode, fault.faultString)});
            });
        } catch (...) {
            attempt([&] { refuse("The server is out of memory."); });
        }
    }

    template <class Act>
    static void attempt(const Act& act) noexcept
    {
        try {
            act();
        } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): see above
        }
    }

    XmlRpcServer& m_server;
    const Value m_calls;
    const HttpServer::Answer m_answer;
    const std::size_t m_room; // of the calls
    MemoryBudget::Share m_share;
    std::size_t m_next = 0;
    ResponseDocument m_document{kLongestAnswer};
};

void XmlRpcServer::takeMulticall(const MethodCall& request, std::size_t room,
                                 const HttpServer::Answer& answer)
{
    if (request.params.size() != 1 || !request.params.front().is_array()) {
        throw RecordError(zyr_top_api::eTI_E_PARAMETER_TYPE_INVALID,
                          "system.multicall: it takes one array, of calls");
    }
    const Value& calls = request.params.front();
    if (calls.size() > kMostCalls) {
        throw RecordError(zyr_top_api::eTI_E_PARAMETER_INVALID,
                          "system.multicall: " + std::to_string(calls.size()) +
                              " calls are given, it takes at most 100");
    }
    std::make_shared<Multicall>(*this, calls, answer, room)->goOn(std::nullopt);
}

} // namespace zyr_gateway
