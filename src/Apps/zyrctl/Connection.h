#pragma once

#include "Client.h"
#include "Console.h"
#include "NodeDescription.h"

#include <chrono>
#include <optional>
#include <string>

namespace zyr_ctl
{

/// What says how the node is reached; what is empty is looked for in the environment.
struct ConnectionSettings
{
    std::string url;
    std::string node;              ///< a name in the file of named nodes, instead of the URL
    std::string user;              ///< name, or name:password
    std::string credentialsFile;   ///< path
    std::string caFile;            ///< path
    std::optional<double> timeout; ///< seconds; 0: none
};

/// How long a call of a command may take: 30 s more than the command itself, since commands run one at a time
/// and others may have to end first; 0, which is no limit, for a long poll.
std::chrono::milliseconds timeoutFor(const CommandDescription& command);

/// Settings win over what a named node has, that wins over the environment: ZYR_URL, ZYR_CREDENTIALS; for the
/// certificates ZYR_CA, CURL_CA_BUNDLE and SSL_CERT_FILE. A named node gets no credentials from the
/// environment, which may be those of another.
/// @throws Failure (usage) if the settings don't make a connection
zyr_gateway::ClientOptions connectionOf(const ConnectionSettings& settings, Console& console);

} // namespace zyr_ctl
