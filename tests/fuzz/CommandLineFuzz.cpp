// Each line is a word of the client's command line, behind what says which node it talks to: one that is
// served here, or none, for the subcommands that wait for something to happen. It does what it is asked for
// or refuses it, as its callers know, and shows nothing that could steer a terminal.

#include "Caught.h"
#include "CommandLine.h"
#include "Fuzz.h"
#include "ServedNode.h"
#include "Session.h"
#include "Subcommands.h"
#include "Text.h"

#include <algorithm>
#include <iostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

using namespace zyr_ctl;
using zyr_fuzz::require;

namespace
{

// What waits, or asks a shell.
const std::set<std::string_view> kWaiting{"events", "pps",      "recover", "restart",          "spectrum",
                                          "taps",   "--follow", "--watch", "CI.GetFastEvents", "--count"};

// Everything but what says which node; whatever is said of that counts for nothing.
void addSettings(CLI::App& app, Session& session, ConnectionSettings& ignored)
{
    app.add_option("-u,--url", ignored.url);
    app.add_option("--node", ignored.node);
    app.add_option("--user", ignored.user);
    app.add_option("--credentials", ignored.credentialsFile);
    app.add_option("--ca", ignored.caFile);
    app.add_option("--timeout", ignored.timeout);
    app.add_flag("--json", session.settings.json);
    app.add_flag("-v,--verbose", session.settings.verbose);
    app.require_subcommand(0, 1);
    app.fallthrough();
}

void run(CLI::App& app, const std::vector<std::string>& given, Session& session)
{
    const std::vector<std::string> words =
        withWholeLists(app, withCallSubcommand(app, withJoinedNumbers(app, given)));
    try {
        app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    } catch (const CLI::Success&) { // help
        session.console.write(app.help());
    } catch (const CLI::ParseError& error) {
        session.console.report(usageFailure(error.what()), asksForJson(words));
    } catch (const Failure& failure) {
        session.console.report(failure, session.settings.json);
    }
}

// The words as the list of processes shows them.
void hide(std::vector<std::string> words)
{
    std::vector<char*> argv;
    for (std::string& word : words) {
        argv.push_back(word.data());
    }
    hideSecrets(static_cast<int>(argv.size()), argv.data());
}

bool isHarmless(const std::string& text)
{
    return std::ranges::all_of(zyr_ctl::linesOf(text),
                               [](const std::string& line) { return printable(line) == line; });
}

} // namespace

void zyr_fuzz::consume(std::string_view input)
{
    static const ServedNode node({});
    std::vector<std::string> words;
    for (const std::string_view line : linesOf(input)) {
        words.emplace_back(line.substr(0, line.find('\0')));
    }
    // Files are read, and a shell's completion has a node of its own.
    const auto isLeftOut = [](const std::string& word) {
        return word == "__complete" || word.starts_with('@') || word.find("=@") != std::string::npos;
    };
    if (std::ranges::any_of(words, isLeftOut)) {
        return;
    }
    const bool waits = std::ranges::any_of(words, [](const std::string& word) {
        return kWaiting.contains(std::string_view(word).substr(0, word.find('=')));
    });
    ConnectionSettings ignored;
    Session session;
    session.settings.connection.url = "http://127.0.0.1:" + std::to_string(waits ? 1 : node.port()) + "/RPC2";
    session.settings.connection.timeout = 5;
    CLI::App app("", "zyrctl");
    addSettings(app, session, ignored);
    addSubcommands(app, session);

    const Caught output(std::cout);
    const Caught errors(std::cerr);
    hide(words);
    run(app, words, session);
    require(isHarmless(output.text()) && isHarmless(errors.text()), "nothing steers the terminal", input);
}
