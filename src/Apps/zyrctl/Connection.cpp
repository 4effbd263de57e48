#include "Connection.h"

#include "Failure.h"
#include "Login.h"
#include "NamedNodes.h"
#include "Text.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <initializer_list>

namespace zyr_ctl
{

namespace
{

std::string firstGiven(std::initializer_list<std::string> values)
{
    const auto* const given =
        std::ranges::find_if(values, [](const std::string& value) { return !value.empty(); });
    return given == values.end() ? "" : *given;
}

// A time-out of 0 is none, so that the shortest one is a millisecond.
std::chrono::milliseconds timeoutOf(double seconds)
{
    constexpr double longest = 1e6;
    return std::chrono::milliseconds(std::lround(std::ceil(std::min(seconds, longest) * 1000.0)));
}

} // namespace

std::chrono::milliseconds timeoutFor(const CommandDescription& command)
{
    constexpr std::chrono::seconds others{30};
    return command.isLongPoll ? std::chrono::milliseconds(0) : command.longest + others;
}

zyr_gateway::ClientOptions connectionOf(const ConnectionSettings& settings, Console& console)
{
    const bool isNamed = !settings.node.empty();
    const NamedNode node = isNamed ? findNode(nodesFile(), settings.node) : NamedNode();
    zyr_gateway::ClientOptions options;
    options.url = firstGiven({settings.url, node.url, environment("ZYR_URL"), "http://127.0.0.1:8080/RPC2"});
    const std::string credentials = firstGiven(
        {settings.credentialsFile, node.credentialsFile, isNamed ? "" : environment("ZYR_CREDENTIALS")});
    options.login = findLogin(firstGiven({settings.user, node.user}), credentials, console);
    options.caFile = firstGiven({settings.caFile, node.caFile, environment("ZYR_CA"),
                                 environment("CURL_CA_BUNDLE"), environment("SSL_CERT_FILE")});
    std::error_code error;
    if (!options.caFile.empty() && !std::filesystem::is_regular_file(options.caFile, error)) {
        throw usageFailure("the file of certificates " + options.caFile + " is not there");
    }
    if (settings.timeout) {
        options.timeout = timeoutOf(*settings.timeout);
    }
    return options;
}

} // namespace zyr_ctl
