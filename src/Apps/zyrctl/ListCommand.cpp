#include "HelpText.h"
#include "Subcommands.h"
#include "Text.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string_view>

namespace zyr_ctl
{

namespace
{

struct ListOptions
{
    std::string pattern;
    bool all = false;
    bool test = false;
};

std::vector<CommandDescription> undescribed(Node& node, const std::vector<CommandDescription>& described,
                                            const std::string& pattern)
{
    std::vector<CommandDescription> others;
    for (const std::string& name : node.methods()) {
        const bool isDescribed =
            std::ranges::find(described, name, &CommandDescription::name) != described.end();
        if (!isDescribed && fitsPattern(name, pattern)) {
            CommandDescription other;
            other.name = name;
            other.help = node.methodHelp(name);
            others.push_back(other);
        }
    }
    return others;
}

std::vector<CommandDescription> listed(Node& node, const ListOptions& options)
{
    const std::vector<CommandDescription> described = node.describeAll();
    std::vector<CommandDescription> found;
    std::ranges::copy_if(described, std::back_inserter(found), [&](const CommandDescription& command) {
        return (command.isTest || !options.test) && fitsPattern(command.name, options.pattern);
    });
    if (options.all) {
        std::ranges::copy(undescribed(node, described, options.pattern), std::back_inserter(found));
    }
    return found;
}

std::vector<Line> listLines(const std::vector<CommandDescription>& commands, std::string_view testMark)
{
    std::size_t width = 0;
    for (const CommandDescription& command : commands) {
        width = std::max(width, widthOf(printable(command.name)));
    }
    std::vector<Line> lines;
    for (const CommandDescription& command : commands) {
        const std::vector<std::string> help = linesOf(command.help);
        const std::string line = padded(printable(command.name), width) + "  " +
                                 (help.empty() ? "" : printable(help.front())) +
                                 std::string(command.isTest ? testMark : "");
        lines.push_back({.text = line.substr(0, line.find_last_not_of(' ') + 1), .mayBeCut = true});
    }
    return lines;
}

// By what they touch.
std::vector<Line> groupedLines(const std::vector<CommandDescription>& commands)
{
    std::map<std::string, std::vector<CommandDescription>> groups;
    for (const CommandDescription& command : commands) {
        groups[command.group.empty() ? "other" : command.group].push_back(command);
    }
    std::vector<Line> lines;
    for (const auto& [group, members] : groups) {
        lines.push_back({printable(group) + ":"});
        for (const Line& line : listLines(members, "")) {
            lines.push_back({.text = "  " + line.text, .mayBeCut = true});
        }
    }
    return lines;
}

Value listJson(const std::vector<CommandDescription>& commands, bool withGroup)
{
    Value list = Value::array();
    for (const CommandDescription& command : commands) {
        list.push_back({{"name", command.name}, {"help", command.help}, {"test", command.isTest}});
        if (withGroup) {
            list.back()["group"] = command.group;
        }
    }
    return list;
}

void runList(Session& session, const ListOptions& options)
{
    const std::vector<CommandDescription> commands = listed(session.node(), options);
    session.show(listJson(commands, options.test),
                 options.test ? groupedLines(commands) : listLines(commands, " [test]"));
    if (commands.empty() && !session.settings.json) {
        session.console.remark("zyrctl: no command fits " + inQuotes(printable(options.pattern)));
    }
}

} // namespace

void addListCommand(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<ListOptions>();
    CLI::App* const list = app.add_subcommand("list", "List the node's commands");
    list->add_option("PATTERN", options->pattern, "Only names that contain it, or fit it if it has * or ?");
    CLI::Option* const all =
        list->add_flag("--all", options->all, "Also the methods that the node does not describe");
    list->add_flag("--test", options->test, "Only test commands, grouped by what they touch")->excludes(all);
    list->callback([&session, options] { runList(session, *options); });
}

} // namespace zyr_ctl
