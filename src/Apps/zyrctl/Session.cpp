#include "Session.h"

#include "Failure.h"
#include "Login.h"
#include "Text.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace zyr_ctl
{

namespace
{

// A time-out of 0 is none, so that the shortest one is a millisecond.
std::chrono::milliseconds timeoutOf(double seconds)
{
    constexpr double longest = 1e6;
    return std::chrono::milliseconds(std::lround(std::ceil(std::min(seconds, longest) * 1000.0)));
}

} // namespace

Node& Session::node()
{
    if (!m_node) {
        zyr_gateway::ClientOptions options;
        options.url = settings.url;
        options.login = findLogin(settings.user, settings.credentialsFile, console);
        if (settings.timeout) {
            options.timeout = timeoutOf(*settings.timeout);
        }
        Node::WireWatch watch;
        if (settings.verbose) {
            watch = [this](const std::string& line) { console.remark(line); };
        }
        m_node = std::make_unique<Node>(std::move(options), std::move(watch));
    }
    return *m_node;
}

void Session::confirm(const std::string& method)
{
    if (!console.canAsk()) {
        throw usageFailure(method + " can disturb traffic and there is no terminal to ask on; give --yes");
    }
    if (!console.isConfirmed(method + " can disturb traffic. Go on?")) {
        throw usageFailure(method + " was not called");
    }
}

void Session::show(const Value& value, const std::vector<Line>& lines)
{
    if (settings.json) {
        console.print({indentedJson(value)});
        return;
    }
    for (const Line& line : lines) {
        console.print({line.text});
    }
}

} // namespace zyr_ctl
