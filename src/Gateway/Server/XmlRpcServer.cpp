#include "XmlRpcServer.h"

#include "BaseResponse.h"
#include "CiReleaseFastEventsRequests.h"
#include "RecordError.h"
#include "Reference.h"

#include <chrono>
#include <exception>
#include <stdexcept>
#include <utility>

namespace zyr_gateway
{

namespace
{

using zyr_registration::CommandEntry;
using zyr_registration::MethodNotes;
using zyr_registration::RecordError;
using zyr_top_api::BaseResponse;
using zyr_top_api::ETIResult;

// How long `stop` waits before it looks for long polls that came to hang since it last released them.
constexpr std::chrono::milliseconds kReleaseInterval{20};
// How long clients may take to fetch the last answers.
constexpr std::chrono::milliseconds kLastAnswers{2'000};

Answer faultAnswer(ETIResult result, const std::string& text)
{
    const BaseResponse response(result, text);
    return {Value(), response.faultCode, response.faultString};
}

// An exception that leaves a method ends here.
template <class Call>
Answer guarded(const std::string& method, const Call& call)
{
    const auto internalError = [&](const std::string& what) {
        return faultAnswer(zyr_top_api::eTI_E_FAILED,
                           "eTI_E_FAILED: " + method + ": internal error: " + what);
    };
    try {
        return call();
    } catch (const RecordError& error) {
        return faultAnswer(error.result(), error.what());
    } catch (const std::exception& error) {
        return internalError(error.what());
    } catch (...) {
        return internalError("an exception of unknown type");
    }
}

std::string document(const Answer& answer)
{
    return answer.faultCode > 0 ? writeFault(answer.faultCode, answer.faultText)
                                : writeResponse(answer.value);
}

const Value& onlyStruct(std::string_view method, const std::vector<Value>& params)
{
    static const Value none = Value::object();
    if (params.empty()) {
        return none;
    }
    if (params.size() > 1) {
        throw RecordError(zyr_top_api::eTI_E_PARAMETER_INVALID,
                          std::string(method) + ": " + std::to_string(params.size()) +
                              " parameters are given, it takes one struct");
    }
    if (!params.front().is_object()) {
        throw RecordError(zyr_top_api::eTI_E_PARAMETER_TYPE_INVALID,
                          std::string(method) + ": the parameter is no struct, it takes one struct");
    }
    return params.front();
}

// The signatures of a method that takes one struct, which may be left out if it has no members.
Value structSignatures(const MethodNotes& notes)
{
    Value signatures = Value::array({Value::array({"struct", "struct"})});
    if (notes.request.empty()) {
        signatures.insert(signatures.begin(), Value::array({"struct"}));
    }
    return signatures;
}

} // namespace

XmlRpcServer::XmlRpcServer(HttpOptions options, zyr_registration::RegisteringModule& commands)
    : m_commands(commands), m_workers(options.maxConnections),
      m_http(std::move(options), [this](HttpRequest request, const HttpServer::Answer& answer) {
          take(std::move(request), answer);
      })
{
    addCommands();
    addSystemMethods();
}

// What could fail here would leave threads that nobody can join.
XmlRpcServer::~XmlRpcServer() // NOLINT(bugprone-exception-escape)
{
    stop();
}

void XmlRpcServer::addMethod(const MethodNotes& notes, std::function<Value(const Value& members)> function)
{
    const auto call = [name = std::string(notes.name), function = std::move(function)](const Params& params) {
        return Answer{function(onlyStruct(name, params)), 0, {}};
    };
    const unsigned channels = m_commands.numberOfChannels();
    add(std::string(notes.name), {zyr_registration::helpText(notes, channels), structSignatures(notes),
                                  zyr_registration::describe(notes, channels), notes.isLongPoll, call});
}

void XmlRpcServer::start()
{
    m_http.start();
}

std::uint16_t XmlRpcServer::port() const noexcept
{
    return m_http.port();
}

void XmlRpcServer::stop()
{
    if (std::exchange(m_isStopped, true)) {
        return;
    }
    m_http.stopAccepting();
    m_workers.close();
    while (!m_workers.waitUntilIdle(kReleaseInterval)) {
        releaseLongPolls();
    }
    m_http.stop(kLastAnswers);
}

void XmlRpcServer::addCommands()
{
    for (const CommandEntry& command : zyr_registration::allCommands()) {
        const auto call = [this, &command](const Params& params) {
            return m_commands.call(command, onlyStruct(command.name(), params));
        };
        const unsigned channels = m_commands.numberOfChannels();
        add(std::string(command.name()),
            {zyr_registration::helpText(command.notes, channels), structSignatures(command.notes),
             zyr_registration::describe(command.notes, channels), command.notes.isLongPoll, call});
    }
}

void XmlRpcServer::add(std::string name, Method method)
{
    const auto [entry, isNew] = m_methods.emplace(std::move(name), std::move(method));
    if (!isNew) {
        throw std::invalid_argument("there is already a method " + entry->first);
    }
}

const XmlRpcServer::Method& XmlRpcServer::method(std::string_view name) const
{
    const auto found = m_methods.find(name);
    if (found == m_methods.end()) {
        throw RecordError(zyr_top_api::eTI_E_METHOD_UNKNOWN,
                          std::string(name) + ": no such method, system.listMethods tells all of them");
    }
    return found->second;
}

void XmlRpcServer::take(HttpRequest request, const HttpServer::Answer& answer)
{
    const bool isTaken = m_workers.run([this, body = std::move(request.body), answer] {
        answer({.status = 200, .contentType = "text/xml", .body = answerTo(body)});
    });
    if (!isTaken) {
        answer({.status = 503, .contentType = "text/plain", .body = "the node is going down\n"});
    }
}

std::string XmlRpcServer::answerTo(const std::string& body)
{
    MethodCall request;
    try {
        request = parseMethodCall(body);
    } catch (const XmlRpcError& error) {
        return document(faultAnswer(zyr_top_api::eTI_E_MALFORMED_REQUEST,
                                    std::string("eTI_E_MALFORMED_REQUEST: ") + error.what()));
    }
    // The answer may be too deep or too big to be written, so that is guarded too.
    std::string written;
    const Answer failure = guarded(request.method, [&] {
        written = document(call(request));
        return Answer{};
    });
    return failure.faultCode > 0 ? document(failure) : written;
}

Answer XmlRpcServer::call(const MethodCall& request)
{
    return guarded(request.method, [&] {
        const Method& called = method(request.method);
        if (!called.isLongPoll) {
            return called.call(request.params);
        }
        ++m_longPolls;
        Answer answer = guarded(request.method, [&] { return called.call(request.params); });
        --m_longPolls;
        return answer;
    });
}

void XmlRpcServer::releaseLongPolls()
{
    if (m_longPolls == 0) {
        return;
    }
    call({std::string(zyr_top_api::CiReleaseFastEventsRequests::identity.wireName), {}});
}

} // namespace zyr_gateway
