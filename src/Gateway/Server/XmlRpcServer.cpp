#include "XmlRpcServer.h"

#include "BaseResponse.h"
#include "CiReleaseFastEventsRequests.h"
#include "DocumentSink.h"
#include "GatewayTrace.h"
#include "RecordError.h"
#include "Reference.h"
#include "ServerParts.h"

#include <chrono>
#include <exception>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace zyr_gateway
{

namespace
{

using zyr_registration::CommandEntry;
using zyr_registration::MethodNotes;
using zyr_registration::RecordError;
using zyr_registration::ValueSink;
using zyr_top_api::BaseResponse;
using zyr_top_api::ETIResult;

// How long a stop waits for what is running. No lawful command takes longer.
constexpr std::chrono::minutes kLongestStop{10};
// Longer bodies are big. They are read again when a command's turn comes, because the values take more room
// than the text.
constexpr std::size_t kLongestSmall = 16UL * 1024UL;
// Calls that wait for their turn in one place.
constexpr std::size_t kMostWaiting = 100;
// Direct commands that are made at a time and may wait.
constexpr std::size_t kMostLong = 64;
// So many bytes of values can come out of one byte of a document.
constexpr std::size_t kValueFactor = 16;
constexpr std::size_t kMostForMulticalls = 24UL * 1024UL * 1024UL;
// What a long poll may bring, since it is kept while the poll hangs.
constexpr std::size_t kLongestPollBody = 64UL * 1024UL;
constexpr LongPolls::Limits kLongPollLimits;
// What "CI.GetFastEvents" says when it has been released.
constexpr std::string_view kReleased = "CI.GetFastEvents has been terminated";

Outcome faultOutcome(ETIResult result, const std::string& text)
{
    const BaseResponse response(result, text);
    return {response.faultCode, response.faultString};
}

// An exception that leaves a method ends here.
template <class Call>
Outcome guarded(const std::string& method, const Call& call)
{
    const auto internalError = [&](const std::string& what) {
        return faultOutcome(zyr_top_api::eTI_E_FAILED,
                            "eTI_E_FAILED: " + method + ": internal error: " + what);
    };
    try {
        return call();
    } catch (const RecordError& error) {
        return faultOutcome(error.result(), error.what());
    } catch (const std::bad_alloc&) {
        throw; // not the call's fault
    } catch (const DocumentTooLong&) {
        throw; // neither
    } catch (const std::exception& error) {
        return internalError(error.what());
    } catch (...) {
        return internalError("an exception of unknown type");
    }
}

HttpResponse inDocument(std::string document)
{
    return {.status = 200, .contentType = "text/xml", .body = std::move(document)};
}

HttpResponse refusal(std::string_view text)
{
    return {.status = 503, .contentType = "text/plain; charset=utf-8", .body = std::string(text) + "\n"};
}

HttpResponse stopping()
{
    return refusal("The server is stopping.");
}

// Does what answers. Nothing leaves this.
template <class Act>
void attempt(const HttpServer::Answer& answer, const Act& act) noexcept
{
    try {
        act();
    } catch (const std::exception&) {
        try {
            answer(refusal("The server is out of memory."));
        } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): an answer let fall says it
        }
    }
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
    // Some clients can't tell an empty struct from an empty array.
    if (params.front().is_array() && params.front().empty()) {
        return none;
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
    : m_commands(commands), m_multicalls(kMostForMulticalls), m_dispatcher(kMostWaiting),
      m_bigOnes(kMostWaiting), m_longOnes(kMostLong),
      m_longPolls(kLongPollLimits, [this] { releaseLongPolls(); }),
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
    const auto call = [name = std::string(notes.name), function = std::move(function)](const Params& params,
                                                                                       ValueSink& sink) {
        sink.value(function(onlyStruct(name, params)));
        return Outcome{};
    };
    add(notes, false, call);
}

void XmlRpcServer::add(const MethodNotes& notes, bool isDispatched, MethodFunction call)
{
    const unsigned channels = m_commands.numberOfChannels();
    const Effort effort = notes.isLongPoll                            ? Effort::LongPoll
                          : notes.longest > zyr_registration::kPrompt ? Effort::Long
                                                                      : Effort::Prompt;
    add(std::string(notes.name),
        {zyr_registration::helpText(notes, channels), structSignatures(notes),
         zyr_registration::describe(notes, channels), effort, isDispatched, std::move(call)});
}

void XmlRpcServer::start()
{
    m_described = descriptions();
    m_http.start();
}

std::uint16_t XmlRpcServer::port() const noexcept
{
    return m_http.port();
}

void XmlRpcServer::stop()
{
    m_isStopping = true;
    m_http.stopAccepting();
    m_longPolls.stop();
    m_http.stop(kLongestStop);
}

void XmlRpcServer::setCredentials(Credentials credentials)
{
    m_http.setCredentials(std::move(credentials));
}

XmlRpcServer::LongPollCount XmlRpcServer::longPolls() const
{
    const std::size_t orphans = m_longPolls.orphans();
    return {m_longPolls.polls() + orphans, orphans};
}

void XmlRpcServer::addCommands()
{
    for (const CommandEntry& command : zyr_registration::allCommands()) {
        add(command.notes, !command.isDirect(), [this, &command](const Params& params, ValueSink& sink) {
            return m_commands.call(command, onlyStruct(command.name(), params), sink);
        });
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
        constexpr std::size_t longest = 64;
        throw RecordError(zyr_top_api::eTI_E_METHOD_UNKNOWN,
                          std::string(name.substr(0, longest)) + (name.size() > longest ? "..." : "") +
                              ": no such method, system.listMethods tells all of them");
    }
    return found->second;
}

void XmlRpcServer::take(HttpRequest request, const HttpServer::Answer& answer)
{
    if (request.body.size() <= kLongestSmall) {
        takeDocument(request.body, answer);
        return;
    }
    const auto body = std::make_shared<const std::string>(std::move(request.body));
    const bool isTaken =
        m_bigOnes.run([this, body, answer] { attempt(answer, [&] { takeDocument(*body, answer); }); });
    if (!isTaken) {
        answer(refusal("Too many big requests are waiting."));
    }
}

void XmlRpcServer::takeDocument(const std::string& body, const HttpServer::Answer& answer)
{
    const auto refuse = [&](ETIResult result, const std::string& text) {
        answer(response({faultOutcome(result, text), {}}));
    };
    try {
        takeCall(parseMethodCall(body), body, answer);
    } catch (const XmlRpcError& error) {
        refuse(zyr_top_api::eTI_E_MALFORMED_REQUEST, std::string("eTI_E_MALFORMED_REQUEST: ") + error.what());
    } catch (const RecordError& error) {
        refuse(error.result(), error.what());
    }
}

void XmlRpcServer::takeCall(MethodCall call, const std::string& body, const HttpServer::Answer& answer)
{
    const Method& called = method(call.method);
    if (call.method == kMulticall) {
        takeMulticall(call, kValueFactor * body.size(), answer);
    } else if (called.effort == Effort::LongPoll) {
        if (body.size() > kLongestPollBody) {
            throw RecordError(zyr_top_api::eTI_E_PARAMETER_INVALID,
                              call.method + ": the request is longer than 64 KiB");
        }
        takeLongPoll(std::move(call), called, answer);
    } else if (called.isDispatched) {
        takeDispatched(std::move(call), body, called, answer);
    } else if (called.effort == Effort::Prompt) {
        answer(responseTo(called, call));
    } else {
        try {
            const bool isTaken = called.effort == Effort::Big
                                     ? m_bigOnes.run(job(called, std::move(call), answer))
                                     : m_longOnes.run(job(called, std::move(call), answer));
            if (!isTaken) {
                answer(refusal("Too many requests are waiting."));
            }
        } catch (const std::system_error&) {
            answer(refusal("There is no thread for the command."));
        }
    }
}

// What makes the call and answers with its outcome.
std::function<void()> XmlRpcServer::job(const Method& called, MethodCall call,
                                        const HttpServer::Answer& answer)
{
    return [this, &called, call = std::make_shared<const MethodCall>(std::move(call)), answer] {
        attempt(answer, [&] { answer(m_isStopping ? stopping() : responseTo(called, *call)); });
    };
}

// A command that has to wait for its turn is not made if its client has left by then.
void XmlRpcServer::takeDispatched(MethodCall call, const std::string& body, const Method& called,
                                  const HttpServer::Answer& answer)
{
    const bool isMade =
        called.effort == Effort::Prompt && m_dispatcher.tryRun([&] { answer(responseTo(called, call)); });
    if (isMade) {
        return;
    }
    auto make = job(called, std::move(call), answer);
    if (body.size() > kLongestSmall) {
        make = [this, &called, body, answer] {
            attempt(answer,
                    [&] { answer(m_isStopping ? stopping() : responseTo(called, parseMethodCall(body))); });
        };
    }
    if (!m_dispatcher.isFree()) {
        make = [make = std::move(make), answer] {
            if (answer.hasClientLeft()) {
                attempt(answer, [&] {
                    answer(refusal("The client's side had ended before the command's turn came: not made."));
                });
            } else {
                make();
            }
        };
    }
    if (!m_dispatcher.run(std::move(make))) {
        answer(refusal("Too many commands are waiting for their turn."));
    }
}

void XmlRpcServer::takeLongPoll(MethodCall call, const Method& called, const HttpServer::Answer& answer)
{
    struct Hanging
    {
        explicit Hanging(MethodCall taken) : call(std::move(taken)) {}

        MethodCall call;
        Made made;
        bool isOutOfMemory = false;
    };
    const auto hanging = std::make_shared<Hanging>(std::move(call));
    const auto poll = [this, hanging, &called] {
        try {
            hanging->made = make(called, hanging->call);
        } catch (const std::exception&) {
            hanging->isOutOfMemory = true;
            return LongPolls::Outcome::Answered;
        }
        return hanging->made.outcome.faultText == kReleased ? LongPolls::Outcome::Released
                                                            : LongPolls::Outcome::Answered;
    };
    const auto finish = [hanging, answer] {
        attempt(answer, [&] {
            answer(hanging->isOutOfMemory ? refusal("The server is out of memory.")
                                          : response(std::move(hanging->made)));
        });
    };
    LongPolls::Handle handle = 0;
    bool isHanging = false;
    try {
        isHanging = m_longPolls.start({poll, finish}, handle);
    } catch (const std::system_error&) {
        answer(refusal("There is no thread for a long poll."));
        return;
    }
    if (isHanging) {
        answer.whenClientLeaves([this, handle] { m_longPolls.leave(handle); });
    } else if (m_isStopping) {
        answer(stopping());
    } else {
        throw RecordError(zyr_top_api::eTI_E_FAILED, hanging->call.method +
                                                         ": too many long polls hang already, " +
                                                         std::to_string(kLongPollLimits.polls) + " can");
    }
}

HttpResponse XmlRpcServer::response(Made made)
{
    return inDocument(made.outcome.faultCode > 0 ? writeFault(made.outcome.faultCode, made.outcome.faultText)
                                                 : std::move(made.document));
}

HttpResponse XmlRpcServer::responseTo(const Method& called, const MethodCall& request)
{
    return response(make(called, request));
}

XmlRpcServer::Made XmlRpcServer::make(const Method& called, const MethodCall& request)
{
    ResponseDocument document(kLongestAnswer);
    try {
        Made made{call(called, request, document.writer()), {}};
        if (made.outcome.faultCode == 0) {
            made.document = document.finish();
        }
        return made;
    } catch (const DocumentTooLong&) {
        return {faultOutcome(zyr_top_api::eTI_E_FAILED,
                             "eTI_E_FAILED: " + request.method + ": the answer is longer than 8 MiB"),
                {}};
    }
}

// A release that a client asks for is made known to the long polls.
Outcome XmlRpcServer::call(const Method& called, const MethodCall& request, ValueWriter& writer)
{
    DocumentSink sink(writer);
    const auto callIt = [&] {
        return guarded(request.method, [&] { return called.call(request.params, sink); });
    };
    if (request.method != zyr_top_api::CiReleaseFastEventsRequests::identity.wireName) {
        return callIt();
    }
    m_longPolls.releaseBegins();
    Outcome outcome = callIt();
    m_longPolls.releaseEnded(outcome.faultCode == 0);
    return outcome;
}

void XmlRpcServer::releaseLongPolls() noexcept
{
    try {
        log(4, [this] {
            return "releasing long polls, " + std::to_string(m_longPolls.orphans()) + " of clients that left";
        });
        m_commands.call(
            *zyr_registration::findCommand(zyr_top_api::CiReleaseFastEventsRequests::identity.wireName),
            Value::object());
    } catch (...) { // NOLINT(bugprone-empty-catch): it is tried again
    }
}

} // namespace zyr_gateway
