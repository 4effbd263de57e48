#include "HelpText.h"
#include "Subcommands.h"
#include "Text.h"

#include <algorithm>
#include <memory>

namespace zyr_ctl
{

namespace
{

std::vector<Line> asLines(const std::vector<std::string>& texts)
{
    std::vector<Line> lines;
    std::ranges::transform(texts, std::back_inserter(lines),
                           [](const std::string& text) { return Line{text}; });
    return lines;
}

// A method that the node doesn't describe has its help as one text.
void showOwnHelp(Session& session, const std::string& method)
{
    const std::string help = session.node().methodHelp(method);
    std::vector<Line> lines{{printable(method)}};
    for (const std::string& line : linesOf(help)) {
        lines.push_back({"  " + printable(line)});
    }
    session.show({{"name", method}, {"help", help}}, lines);
}

void runHelp(const CLI::App& app, Session& session, const std::string& command)
{
    if (command.empty()) {
        // The application's own help() would be that of the subcommand in hand.
        session.console.write(
            app.get_formatter()->make_help(&app, app.get_name(), CLI::AppFormatMode::Normal));
        return;
    }
    const std::vector<std::string> own = subcommandNames(app);
    if (std::ranges::find(own, command) != own.end()) {
        session.console.write(app.get_subcommand(command)->help(app.get_name()));
        return;
    }
    if (const auto description = session.node().describe(command, own)) {
        session.show(description->original, asLines(helpLines(*description, session.console.room())));
    } else {
        showOwnHelp(session, command);
    }
}

} // namespace

void addHelpCommand(CLI::App& app, Session& session)
{
    const auto command = std::make_shared<std::string>();
    CLI::App* const help = app.add_subcommand("help", "Explain a command of the node, or a subcommand");
    help->add_option("COMMAND", *command, "Name of a command, as in the list");
    help->callback([&app, &session, command] { runHelp(app, session, *command); });
}

} // namespace zyr_ctl
