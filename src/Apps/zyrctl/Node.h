#pragma once

#include "Client.h"
#include "NodeDescription.h"
#include "Secrets.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zyr_ctl
{

/// The node that the program talks to. Everything that goes wrong is a Failure with its exit status.
class Node
{
  public:
    /// Shown a line of what passes, with its direction before it ("> " or "< ") and without secrets.
    using WireWatch = std::function<void(const std::string& line)>;

    /// @param options  the watch in them is not used
    /// @param watch    may be empty
    Node(zyr_gateway::ClientOptions options, WireWatch watch);

    /// Calls a method.
    /// @return the answer, without the values of secret members
    /// @throws Failure: fault, protocol
    /// @throws Unreachable: timeout, connect, protocol
    Value call(const std::string& method, const std::vector<Value>& params);

    /// How long each further call may take; 0: as long as it wishes.
    void setTimeout(std::chrono::milliseconds timeout);

    /// The names of all methods.
    std::vector<std::string> methods();

    /// The descriptions of all methods that have one.
    std::vector<CommandDescription> describeAll();

    /// The description of a method.
    /// @param alsoMeant  what else somebody may have meant who typed the name
    /// @return none if the node has the method but doesn't describe it
    /// @throws Failure (usage) with "did you mean" if the node has no such method
    std::optional<CommandDescription> describe(const std::string& method,
                                               const std::vector<std::string>& alsoMeant = {});

    /// The description of a method's answer; none if the node doesn't describe it.
    /// @throws Failure (usage) if the node has no such method
    std::vector<FieldDescription> responseOf(const std::string& method);

    /// What the node itself writes as help of a method.
    std::string methodHelp(const std::string& method);

    /// Which fields are secret, as far as the node has told yet.
    const SecretNames& secrets() const { return m_secrets; }

  private:
    Value ask(const std::string& method, const std::vector<Value>& params);
    CommandDescription learned(CommandDescription description);
    zyr_gateway::MethodResponse exchange(const zyr_gateway::MethodCall& call);
    void connect();
    void showWire();

    zyr_gateway::ClientOptions m_options;
    WireWatch m_watch;
    SecretNames m_secrets;
    std::string m_sent;
    std::string m_received;
    std::optional<zyr_gateway::XmlRpcClient> m_client;
};

} // namespace zyr_ctl
