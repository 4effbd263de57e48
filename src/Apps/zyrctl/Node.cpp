#include "Node.h"

#include "Failure.h"
#include "Secrets.h"
#include "Suggestion.h"
#include "Text.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace zyr_ctl
{

namespace
{

using zyr_gateway::ClientOptions;
using zyr_gateway::MethodCall;
using zyr_gateway::MethodResponse;

// Runs a piece of the exchange and gives what goes wrong its exit status.
template <class Exchange>
auto withExitStatus(Exchange exchange)
{
    try {
        return exchange();
    } catch (const zyr_gateway::ConnectError& error) {
        throw Unreachable(ExitStatus::NoConnection, error.what());
    } catch (const zyr_gateway::TimeoutError& error) {
        throw Unreachable(ExitStatus::Timeout, error.what());
    } catch (const zyr_gateway::BrokenOffError& error) {
        throw Unreachable(ExitStatus::Protocol, error.what());
    } catch (const zyr_gateway::HttpStatusError& error) {
        constexpr long serviceUnavailable = 503;
        if (error.status() == serviceUnavailable) {
            throw Unreachable(ExitStatus::Protocol, error.what(), error.status());
        }
        throw Failure(ExitStatus::Protocol, error.what(), error.status());
    } catch (const zyr_gateway::ProtocolError& error) {
        throw Failure(ExitStatus::Protocol, error.what());
    } catch (const zyr_gateway::ClientError& error) {
        throw usageFailure(error.what());
    } catch (const std::invalid_argument& error) { // values nested too deep to be sent
        throw usageFailure(error.what());
    }
}

std::vector<std::string> namesIn(const Value& list)
{
    std::vector<std::string> names;
    for (const Value& name : list.is_array() ? list : Value::array()) {
        if (name.is_string()) {
            names.push_back(name.get<std::string>());
        }
    }
    return names;
}

} // namespace

Node::Node(ClientOptions options, WireWatch watch) : m_options(std::move(options)), m_watch(std::move(watch))
{
    if (m_watch) {
        m_options.watch = [this](ClientOptions::Wire direction, std::string_view bytes) {
            (direction == ClientOptions::Wire::Sent ? m_sent : m_received) += bytes;
        };
    }
    connect();
}

void Node::connect()
{
    withExitStatus([this] { m_client.emplace(m_options); });
}

void Node::setTimeout(std::chrono::milliseconds timeout)
{
    m_options.timeout = timeout;
    connect();
}

Value Node::call(const std::string& method, const std::vector<Value>& params)
{
    try {
        return ask(method, params);
    } catch (const Unreachable& failure) {
        if (failure.status() == ExitStatus::Timeout) {
            throw Unreachable(ExitStatus::Timeout,
                              std::string(failure.what()) + "; the node may still be running " + method);
        }
        throw;
    }
}

Value Node::ask(const std::string& method, const std::vector<Value>& params)
{
    MethodResponse response;
    try {
        response = exchange({method, params});
    } catch (...) {
        showWire(); // most wanted when something went wrong
        throw;
    }
    showWire();
    if (response.fault) {
        throw Failure(ExitStatus::Fault, response.fault->text, response.fault->code);
    }
    return m_secrets.hiddenIn(response.value);
}

CommandDescription Node::learned(CommandDescription description)
{
    m_secrets.learn(description.request);
    m_secrets.learn(description.response);
    return description;
}

MethodResponse Node::exchange(const MethodCall& call)
{
    return withExitStatus([&] { return m_client->call(call); });
}

// The pieces come as the network cuts them; secrets can be told only in the whole.
void Node::showWire()
{
    for (const auto& [prefix, bytes] : {std::pair("> ", &m_sent), std::pair("< ", &m_received)}) {
        for (std::string& line : linesOf(m_secrets.hiddenInXml(*bytes))) {
            if (line.ends_with('\r')) {
                line.pop_back();
            }
            m_watch(prefix + printable(line));
        }
        bytes->clear();
    }
}

std::vector<std::string> Node::methods()
{
    return namesIn(ask("system.listMethods", {}));
}

std::vector<CommandDescription> Node::describeAll()
{
    std::vector<CommandDescription> descriptions = readCommands(ask(std::string(kDescribeMethod), {}));
    for (CommandDescription& description : descriptions) {
        description = learned(std::move(description));
    }
    return descriptions;
}

std::optional<CommandDescription> Node::describe(const std::string& method,
                                                 const std::vector<std::string>& alsoMeant)
{
    try {
        return learned(readCommand(ask(std::string(kDescribeMethod), {Value(method)})));
    } catch (const Failure& failure) {
        if (failure.status() != ExitStatus::Fault) {
            throw;
        }
    }
    std::vector<std::string> known = methods();
    if (std::ranges::find(known, method) == known.end()) {
        known.insert(known.end(), alsoMeant.begin(), alsoMeant.end());
        throw usageFailure("the node has no command " + inQuotes(method) + didYouMean(method, known));
    }
    return std::nullopt;
}

std::vector<FieldDescription> Node::responseOf(const std::string& method)
{
    const auto description = describe(method);
    return description ? description->response : std::vector<FieldDescription>();
}

std::string Node::methodHelp(const std::string& method)
{
    const Value help = ask("system.methodHelp", {Value(method)});
    return help.is_string() ? help.get<std::string>() : std::string();
}

} // namespace zyr_ctl
