#include "Completion.h"
#include "CompletionScripts.h"
#include "NamedNodes.h"
#include "Subcommands.h"

#include <algorithm>
#include <map>
#include <memory>

namespace zyr_ctl
{

namespace
{

// A shell that waits for a completion seems to hang.
constexpr double kTimeout = 2;

const std::map<std::string, std::string_view (*)()> kScripts{
    {"bash", &bashCompletionScript},
    {"fish", &fishCompletionScript},
    {"zsh", &zshCompletionScript},
};

std::vector<std::string> shells()
{
    std::vector<std::string> names;
    names.reserve(kScripts.size());
    for (const auto& [name, script] : kScripts) {
        names.push_back(name);
    }
    return names;
}

std::vector<std::string> namesOfNodes()
{
    std::vector<std::string> names;
    for (const NamedNode& node : readNodes(nodesFile())) {
        names.push_back(node.name);
    }
    return names;
}

void addOptions(const CLI::App& app, CompletionSource& source)
{
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            source.options.push_back("--" + name);
        }
        const bool isFollowed = option->get_expected_max() != 0 && !option->get_positional();
        for (const std::string& name : isFollowed ? option->get_lnames() : std::vector<std::string>()) {
            source.valueOptions.push_back("--" + name);
        }
        for (const std::string& name : isFollowed ? option->get_snames() : std::vector<std::string>()) {
            source.valueOptions.push_back("-" + name);
        }
    }
}

CompletionSource sourceOf(const CLI::App& app, Session& session)
{
    CompletionSource source;
    source.subcommands = subcommandNames(app);
    addOptions(app, source);
    for (const std::string& name : source.subcommands) {
        addOptions(*app.get_subcommand(name), source);
    }
    std::ranges::sort(source.options);
    source.options.erase(std::unique(source.options.begin(), source.options.end()), source.options.end());
    source.shells = shells();
    source.nodes = &namesOfNodes;
    source.commands = [&session] { return session.node().methods(); };
    source.describe = [&session](const std::string& command) { return session.node().describe(command); };
    return source;
}

// The line that is being typed has its own settings.
void takeSettings(const std::vector<std::string>& words, Settings& settings)
{
    settings.verbose = false;
    ConnectionSettings& connection = settings.connection;
    connection.timeout = kTimeout;
    connection.url = optionValue(words, "--url").value_or(optionValue(words, "-u").value_or(""));
    connection.node = optionValue(words, "--node").value_or("");
    connection.user = optionValue(words, "--user").value_or("");
    connection.credentialsFile = optionValue(words, "--credentials").value_or("");
    connection.caFile = optionValue(words, "--ca").value_or("");
}

void runComplete(const CLI::App& app, Session& session, const std::string& line)
{
    const std::vector<std::string> words = completionWords(line);
    takeSettings(words, session.settings);
    try {
        session.console.print(completions(words, sourceOf(app, session)));
    } catch (const Failure&) {
        // Whoever presses the tabulator key doesn't want to read about it.
    }
}

} // namespace

void addCompletionCommand(CLI::App& app, Session& session)
{
    const auto shell = std::make_shared<std::string>();
    CLI::App* const completion = app.add_subcommand("completion", "Print the completion script of a shell");
    completion->add_option("SHELL", *shell, "bash, fish or zsh")->required()->check(CLI::IsMember(shells()));
    completion->callback([&session, shell] { session.console.write(kScripts.at(*shell)()); });

    const auto line = std::make_shared<std::string>();
    CLI::App* const complete = app.add_subcommand("__complete", "")->group("");
    complete->add_option("LINE", *line)->required();
    complete->callback([&app, &session, line] { runComplete(app, session, *line); });
}

std::vector<std::string> subcommandNames(const CLI::App& app)
{
    std::vector<std::string> names;
    for (const CLI::App* subcommand : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (!subcommand->get_group().empty()) {
            names.push_back(subcommand->get_name());
        }
    }
    return names;
}

} // namespace zyr_ctl
