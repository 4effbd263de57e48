#include "Completion.h"
#include "Subcommands.h"

#include <algorithm>
#include <memory>

namespace zyr_ctl
{

namespace
{

// A shell that waits for a completion seems to hang.
constexpr double kTimeout = 2;

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
    source.commands = [&session] { return session.node().methods(); };
    source.describe = [&session](const std::string& command) { return session.node().describe(command); };
    return source;
}

// The line that is being typed has its own settings.
void takeSettings(const std::vector<std::string>& words, Settings& settings)
{
    settings.timeout = kTimeout;
    settings.verbose = false;
    settings.url = optionValue(words, "--url").value_or(optionValue(words, "-u").value_or(settings.url));
    settings.user = optionValue(words, "--user").value_or(settings.user);
    settings.credentialsFile = optionValue(words, "--credentials").value_or(settings.credentialsFile);
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
    completion->add_option("SHELL", *shell, "bash")
        ->required()
        ->check(CLI::IsMember(std::vector<std::string>{"bash"}));
    completion->callback([&session, shell] { // keeps the option's text alive
        session.console.write(bashCompletionScript());
    });

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
