#pragma once

#include "Codec.h"
#include "Description.h"
#include "HttpServer.h"
#include "RegisteringModule.h"
#include "Value.h"
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

/// What a method brought: a value, or a fault.
using zyr_registration::Answer;

/// The node's XML-RPC server: all commands by their wire names, the introspection methods "system.", and
/// "zyr.describe" with its hash, which tells programs what they need to know to call the methods.
///
/// Each request runs on a thread of its own, at most as many as there can be connections, so that neither a
/// long poll nor a long command keeps others waiting for the server; the commands themselves run one at a
/// time. What a client sends and what a command throws ends in a fault, never the process.
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

    /// Takes no more requests, releases the long polls, lets what is running end and answers it, and ends.
    /// Takes as long as the longest command that is running. A second call does nothing.
    void stop();

  private:
    using Params = std::vector<Value>;

    struct Method
    {
        std::string help;
        Value signatures;        // arrays of type names, the result's first
        Value description;       // for "zyr.describe"; null: not told there
        bool isLongPoll = false; // not inside "system.multicall"
        std::function<Answer(const Params&)> call;
    };

    void addCommands();
    void addSystemMethods();
    void add(std::string name, Method method);
    void addSystemMethod(std::string name, std::string help, Value signatures,
                         std::function<Value(const Params&)> call);
    const Method& method(std::string_view name) const;

    void take(HttpRequest request, const HttpServer::Answer& answer);
    std::string answerTo(const std::string& body);
    Answer call(const MethodCall& request);
    void releaseLongPolls();

    Value describe(const Params& params) const;
    Value descriptions() const; // of all methods that have one, by name
    Value multicall(const Params& params);
    Value callOfMulticall(const Value& given);

    zyr_registration::RegisteringModule& m_commands;
    std::map<std::string, Method, std::less<>> m_methods;
    std::atomic<unsigned> m_longPolls = 0; // running now
    bool m_isStopped = false;
    WorkerPool m_workers;
    HttpServer m_http; // destroyed first, since it hands requests to the workers
};

} // namespace zyr_gateway
