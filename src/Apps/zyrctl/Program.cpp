#include "Program.h"

#include "CommandLine.h"
#include "Limits.h"
#include "Session.h"
#include "Subcommands.h"

#include <exception>
#include <iostream>

namespace zyr_ctl
{

namespace
{

void addSettings(CLI::App& app, Settings& settings)
{
    app.set_version_flag("--version", "zyrctl " ZYR_VERSION);
    ConnectionSettings& connection = settings.connection;
    CLI::Option* const url =
        app.add_option("-u,--url", connection.url,
                       "URL of the node's server; else that of ZYR_URL, else http://127.0.0.1:8080/RPC2");
    app.add_option("--node", connection.node,
                   "A node named in the file ZYR_NODES, or zyrctl/nodes.ini below ~/.config: sections [NAME] "
                   "with url, user, credentials and ca = VALUE")
        ->excludes(url);
    app.add_option("--user", connection.user, "User for Basic authentication: NAME, or NAME:PASSWORD");
    app.add_option("--credentials", connection.credentialsFile,
                   "File (mode 0600) with a line user:password; else that of ZYR_CREDENTIALS");
    app.add_option("--ca", connection.caFile,
                   "File of trusted certificates (PEM); else that of ZYR_CA, CURL_CA_BUNDLE or "
                   "SSL_CERT_FILE, else the system's");
    app.add_option(
           "--timeout", connection.timeout,
           "Seconds that a call may take, 0 for no limit; else 30 more than the command's longest time")
        ->check(notNegative());
    app.add_flag("--json", settings.json, "All output as JSON, errors included");
    app.add_flag("-v,--verbose", settings.verbose, "Show what passes over the wire, secrets hidden");
    app.require_subcommand(0, 1);
    app.fallthrough();
}

ExitStatus run(CLI::App& app, Session& session, int argc, char** argv)
{
    const std::vector<std::string> words =
        withWholeLists(app, withCallSubcommand(app, withJoinedNumbers(app, {argv + 1, argv + argc})));
    hideSecrets(argc, argv);
    try {
        app.parse(std::vector<std::string>(words.rbegin(), words.rend())); // it takes them from the end
        if (app.get_subcommands().empty()) {
            session.console.write(app.help());
        }
        session.console.flush();
        return ExitStatus::Done;
    } catch (const CLI::Success& request) { // --help, --version
        app.exit(request);
        return ExitStatus::Done;
    } catch (const CLI::ParseError& error) {
        session.console.report(usageFailure(error.what()), asksForJson(words));
        return ExitStatus::Usage;
    } catch (const Failure& failure) {
        session.console.report(failure, session.settings.json);
        return failure.status();
    } catch (const Value::exception& error) { // a member of another type than commands have
        const Failure failure(ExitStatus::Protocol,
                              std::string("the node answers in a way that this program does not know: ") +
                                  error.what());
        session.console.report(failure, session.settings.json);
        return failure.status();
    }
}

} // namespace

int runProgram(int argc, char** argv)
{
    try {
        CLI::App app("Client of a radio-link node: lists, explains and calls its commands.", "zyrctl");
        Session session;
        addSettings(app, session.settings);
        addSubcommands(app, session);
        app.footer("Exit status: 0 done, 1 fault, 2 usage, 3 no connection, 4 time-out, 5 protocol error, "
                   "130 interrupted.");
        return static_cast<int>(run(app, session, argc, argv));
    } catch (const std::exception& error) {
        std::cerr << "zyrctl: internal error: " << error.what() << '\n';
        return static_cast<int>(ExitStatus::Usage);
    }
}

} // namespace zyr_ctl
