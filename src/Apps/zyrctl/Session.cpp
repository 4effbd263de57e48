#include "Session.h"

#include "Failure.h"
#include "Text.h"

#include <chrono>
#include <utility>

namespace zyr_ctl
{

Node& Session::node()
{
    if (!m_node) {
        Node::WireWatch watch;
        if (settings.verbose) {
            watch = [this](const std::string& line) { console.remark(line); };
        }
        m_node = std::make_unique<Node>(connectionOf(settings.connection, console), std::move(watch));
    }
    return *m_node;
}

void Session::waitFor(const CommandDescription& command)
{
    if (!settings.connection.timeout) {
        node().setTimeout(timeoutFor(command));
    }
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
    console.print(lines);
}

} // namespace zyr_ctl
