#include "Codec.h"
#include "FieldValue.h"
#include "Request.h"
#include "Secrets.h"
#include "Subcommands.h"
#include "Text.h"
#include "ValuePath.h"
#include "Watch.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>

namespace zyr_ctl
{

namespace
{

struct CallOptions
{
    std::string command;
    std::vector<std::string> subcommands; ///< one of which may have been meant
    std::vector<std::string> assignments;
    std::string data;
    std::string get;
    bool dryRun = false;
    bool yes = false;
    WatchOptions watch;
};

// A call that is ready to be made.
struct PreparedCall
{
    std::string method;
    std::optional<CommandDescription> description;
    std::vector<Value> params;
};

std::string readAll(std::istream& stream)
{
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::optional<Value> dataOf(const std::string& given)
{
    if (given.empty()) {
        return std::nullopt;
    }
    if (given == "@-") {
        return parseJson("standard input", readAll(std::cin));
    }
    if (given.front() != '@') {
        return parseJson("--data", given);
    }
    const std::string path = given.substr(1);
    std::ifstream file(path);
    if (!file) {
        throw usageFailure("cannot read " + path);
    }
    return parseJson(path, readAll(file));
}

PreparedCall prepare(Session& session, const CallOptions& options)
{
    const std::optional<Value> data = dataOf(options.data);
    PreparedCall call{options.command, session.node().describe(options.command, options.subcommands), {}};
    call.params = call.description ? checkedParams(*call.description, data, options.assignments)
                                   : uncheckedParams(data, options.assignments);
    return call;
}

void showRequest(Session& session, const PreparedCall& call)
{
    std::vector<Value> params = call.params;
    for (Value& param : params) {
        param = session.node().secrets().hiddenIn(param);
    }
    if (session.settings.json) {
        session.console.print({indentedJson({{"method", call.method}, {"params", params}})});
    } else {
        session.console.print({zyr_gateway::writeMethodCall({call.method, params})});
    }
}

// What is typed stays in the shell's history.
void warnOfSecrets(Session& session, const CallOptions& options)
{
    if (session.settings.json) {
        return;
    }
    const auto warn = [&](const std::string& name) {
        session.console.remark("zyrctl: the shell's history keeps " + printable(name) +
                               "; --data @FILE and --data @- leave no trace there" +
                               (options.command == kEncryptMethod ? ", nor does zyrctl encrypt" : ""));
    };
    const SecretNames& secrets = session.node().secrets();
    for (const std::string& assignment : options.assignments) {
        const std::size_t equals = assignment.find('=');
        const std::string name = assignment.substr(0, equals);
        const bool isGiven = equals != std::string::npos && equals + 1 < assignment.size();
        if (isGiven && secrets.contains(name.substr(name.rfind('.') + 1))) {
            warn(name);
        }
    }
    if (!options.data.empty() && options.data.front() != '@') {
        for (const std::string& name : secrets.namesIn(dataOf(options.data).value_or(Value()))) {
            warn(name);
        }
    }
}

void runCall(Session& session, const CallOptions& options)
{
    const PreparedCall call = prepare(session, options);
    if (options.dryRun) {
        showRequest(session, call);
        return;
    }
    warnOfSecrets(session, options);
    if (!options.yes && call.description && call.description->disturbsTraffic) {
        session.confirm(call.method);
    }
    if (call.description) {
        session.waitFor(*call.description);
    }
    const auto fields = call.description ? call.description->response : std::vector<FieldDescription>();
    const auto ask = [&] { return session.node().call(call.method, call.params); };
    const auto askPart = [&] { return pick(ask(), fields, options.get); };
    const bool isPart = !options.get.empty();
    if (options.watch.watch->count() != 0) {
        watch(
            session, options.watch, [&] { return isPart ? askPart().value : ask(); },
            [&](const Value& answer, const std::set<std::string>& changed) {
                return renderAnswer(answer, fields, changed, session.console.room());
            });
    } else if (isPart) {
        const Picked part = askPart();
        session.show(part.value, renderPicked(part.value, part.field, session.console.room()));
    } else {
        const Value answer = ask();
        session.show(answer, renderAnswer(answer, fields, {}, session.console.room()));
    }
}

} // namespace

void addCallCommand(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<CallOptions>();
    CLI::App* const call =
        app.add_subcommand("call", "Call a command of the node; zyrctl COMMAND field=value is the same");
    call->add_option("COMMAND", options->command, "Name of a command, as in the list")->required();
    call->add_option(
        "FIELD=VALUE", options->assignments,
        "Fields of the request: texts or numbers of enumerations, record.field for nested ones, "
        "JSON for lists; values alone for methods that take no record, such as system.methodHelp");
    call->add_option("--data", options->data, "The request as JSON; @FILE or @- (standard input) reads it");
    call->add_option("--get", options->get, "Only this part of the answer: events[0].isActive");
    call->add_flag("--dry-run", options->dryRun, "Print the request, secrets hidden, and do not call");
    call->add_flag("--yes", options->yes, "Do not ask before a command that can disturb traffic");
    addWatchOptions(*call, options->watch);
    call->callback([&app, &session, options] {
        options->subcommands = subcommandNames(app);
        runCall(session, *options);
    });
}

} // namespace zyr_ctl
