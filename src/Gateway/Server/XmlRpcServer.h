#pragma once

#include "Codec.h"
#include "Description.h"
#include "HttpServer.h"
#include "Lane.h"
#include "LongPolls.h"
#include "MemoryBudget.h"
#include "RegisteringModule.h"
#include "Value.h"
#include "ValueSink.h"
#include "WorkerPool.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_gateway
{

/// How a method has ended: with a value, or with a fault.
using zyr_registration::Outcome;

/// The node's XML-RPC server: all commands by their wire names, the introspection methods "system.", and
/// "zyr.describe" with its hash, which tells programs what they need to know to call the methods.
///
/// A call that waits for nothing is made by the thread that takes the request, the one that does all input
/// and output. Dispatched commands are made one at a time: one that finds another in its way waits for its
/// turn without a thread, and those that may take longer are made by a thread of their own. Direct commands
/// that may take longer have threads that come and go. So a long command keeps nobody waiting but those that
/// must wait for it. A command that has waited for its turn is not made if its client has left by then. Long
/// polls hang on threads of their own, 64 at the most; what is big is done by one
/// thread, one after the other.
///
/// What a client sends and what a command throws ends in a fault, never the process. An answer has 8 MiB at
/// the most, that of "system.multicall" included.
class XmlRpcServer
{
  public:
    /// Serves the commands of a registering module, which must outlive the server. Nothing listens yet.
    /// @throws HttpServerError  as `HttpServer` does
    XmlRpcServer(HttpOptions options, zyr_registration::RegisteringModule& commands);

    /// Stops.
    ~XmlRpcServer(); // NOLINT(bugprone-exception-escape): see the definition
    XmlRpcServer(const XmlRpcServer&) = delete;
    XmlRpcServer& operator=(const XmlRpcServer&) = delete;

    /// Adds a method of the application, which takes one struct. To be called before `start`.
    /// @param notes     its name, help and fields; what they refer to must outlive the server
    /// @param function  makes the answer out of the struct's members, an object; may throw, `RecordError` for
    ///                  members that won't do; called from many threads at once
    /// @throws std::invalid_argument if there is a method of this name
    void addMethod(const zyr_registration::MethodNotes& notes,
                   std::function<Value(const Value& members)> function);

    /// Listens. To be called once.
    /// @throws HttpServerError  as `HttpServer::start` does
    void start();

    /// The port that it listens on; 0 before `start`.
    std::uint16_t port() const noexcept;

    /// As `HttpServer::setCredentials`.
    void setCredentials(Credentials credentials);

    /// How many long polls hang, and how many of these for clients that have left. Any thread.
    struct LongPollCount
    {
        std::size_t hanging;
        std::size_t orphans;
    };
    LongPollCount longPolls() const;

    /// Takes no more requests, releases the long polls, lets what is running end and answers it, and ends.
    /// Takes as long as the longest command that is running. A second call does nothing.
    void stop();

  private:
    using Params = std::vector<Value>;
    // Writes the answer's value, or gives a fault.
    using MethodFunction = std::function<Outcome(const Params&, zyr_registration::ValueSink&)>;

    // What making a method's calls takes.
    enum class Effort
    {
        Prompt,   // waits for nothing
        Big,      // waits for nothing, but is much work
        Long,     // may wait
        LongPoll, // waits as long as its caller wishes; not inside "system.multicall"
    };

    struct Method
    {
        std::string help;
        Value signatures;  // arrays of type names, the result's first
        Value description; // for "zyr.describe"; null: not told there
        Effort effort = Effort::Prompt;
        bool isDispatched = false; // one at a time
        MethodFunction call;
    };
    // A call that has been made.
    struct Made
    {
        Outcome outcome;
        std::string document; // unless there is a fault
    };
    class Multicall;

    void addCommands();
    void addSystemMethods();
    void add(std::string name, Method method);
    void add(const zyr_registration::MethodNotes& notes, bool isDispatched, MethodFunction call);
    void addSystemMethod(std::string_view name, std::function<Value(const Params&)> call,
                         Effort effort = Effort::Prompt);
    const Method& method(std::string_view name) const;

    void take(HttpRequest request, const HttpServer::Answer& answer);
    void takeDocument(const std::string& body, const HttpServer::Answer& answer);
    void takeCall(MethodCall call, const std::string& body, const HttpServer::Answer& answer);
    void takeDispatched(MethodCall call, const std::string& body, const Method& called,
                        const HttpServer::Answer& answer);
    void takeLongPoll(MethodCall call, const Method& called, const HttpServer::Answer& answer);
    void takeMulticall(const MethodCall& request, std::size_t room, const HttpServer::Answer& answer);
    std::function<void()> job(const Method& called, MethodCall call, const HttpServer::Answer& answer);
    Outcome call(const Method& called, const MethodCall& request, ValueWriter& writer);
    Made make(const Method& called, const MethodCall& request);
    HttpResponse responseTo(const Method& called, const MethodCall& request);
    static HttpResponse response(Made made);
    void releaseLongPolls() noexcept;

    Value describe(const Params& params) const;
    Value descriptions() const;

    zyr_registration::RegisteringModule& m_commands;
    std::map<std::string, Method, std::less<>> m_methods;
    Value m_described;         // all that "zyr.describe" tells; from `start` on
    MemoryBudget m_multicalls; // what their calls and answers take while they are being made
    std::atomic<bool> m_isStopping = false;
    Lane m_dispatcher;     // where dispatched commands are made
    Lane m_bigOnes;        // where big documents are read and made
    WorkerPool m_longOnes; // where direct commands are made that may wait
    LongPolls m_longPolls;
    HttpServer m_http; // destroyed first, since it hands requests to the others
};

} // namespace zyr_gateway
