// restart and recover: what takes the node a while, from the start to how it went.

#include "Failure.h"
#include "Limits.h"
#include "StopSignals.h"
#include "Subcommands.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <set>
#include <string>

namespace zyr_ctl
{

namespace
{

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr const char* kRestart = "CRI.RestartRadio";
constexpr const char* kRecovery = "CRI.StartRecovery";
constexpr const char* kAlarms = "CI.GetEvents";
constexpr auto kAskInterval = 500ms;

struct RestartOptions
{
    std::int64_t channel = 1;
    CLI::Option* wait = nullptr;
    std::string limit = "0"; ///< seconds; a text, since a flag takes whole numbers alone
    bool yes = false;
};

std::string secondsSince(Clock::time_point start)
{
    const auto tenths = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start) / 100;
    return std::to_string(tenths.count() / 10) + "." + std::to_string(tenths.count() % 10) + " s";
}

void confirmUnless(bool mayGoOn, Session& session, const char* method)
{
    if (!mayGoOn) {
        session.confirm(method);
    }
}

// The line of progress, which goes away with this, before anything else is written.
class ProgressLine
{
  public:
    explicit ProgressLine(Console& console) : m_console(console) {}
    ~ProgressLine() { m_console.endProgress(); }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void show(const std::string& text) const { m_console.progress(text); }

  private:
    Console& m_console;
};

// Waits until `isOver` says so, with a line of progress on a terminal. `goingOn` says what goes on and how to
// wait for it again.
template <class IsOver>
void waitFor(Session& session, const RestartOptions& options, const std::string& what,
             const std::string& goingOn, const IsOver& isOver)
{
    const StopSignals signals;
    const ProgressLine progress(session.console);
    const auto start = Clock::now();
    const auto limit = std::chrono::duration<double>(std::stod(options.limit));
    const std::string tooLong = what + " has not ended in time; " + goingOn;
    while (!isOver()) {
        if (Clock::now() - start > limit) {
            throw Failure(ExitStatus::Timeout, tooLong);
        }
        progress.show(what + " " + secondsSince(start));
        if (signals.hasComeWithin(kAskInterval)) {
            throw Failure(ExitStatus::Interrupted, "interrupted; " + goingOn);
        }
    }
}

void showOutcome(Session& session, const std::string& outcome, const std::string& line)
{
    session.show(Value{{"outcome", outcome}}, {{line}});
}

// How the restart of a radio unit stands, as the node numbers it.
enum class Restart : std::int64_t
{
    Idle = 1,
    Restarting = 2,
    RestartSuccessful = 3,
};

Restart act(Session& session, const RestartOptions& options, const char* action)
{
    const Value answer =
        session.node().call(kRestart, {Value{{"RadioChannelID", options.channel}, {"Action", action}}});
    const auto status = answer.find("Status");
    if (status == answer.end() || !status->is_number_integer()) {
        throw Failure(ExitStatus::Protocol, std::string(kRestart) + " does not tell how the restart stands");
    }
    return static_cast<Restart>(status->get<std::int64_t>());
}

// Tells how a restart went, and ends it.
void closeRestart(Session& session, const RestartOptions& options, Restart status, const std::string& unit)
{
    if (status == Restart::Idle) {
        throw Failure(ExitStatus::Fault,
                      "somebody else has ended the restart of " + unit + ", so how it went is not known");
    }
    act(session, options, "EndRestart");
    if (status != Restart::RestartSuccessful) {
        throw Failure(ExitStatus::Fault, "the restart of " + unit + " failed");
    }
    showOutcome(session, "RestartSuccessful", unit + " has restarted");
}

// A restart that is still open, since nobody has waited for it to the end, is waited for or told in place of
// another one.
void runRestart(Session& session, const RestartOptions& options)
{
    const std::string channel = std::to_string(options.channel);
    const std::string unit = "the radio unit of channel " + channel;
    const std::string again = "zyrctl restart " + channel + " --wait";
    const bool waits = options.wait->count() != 0;
    Restart status = act(session, options, "GetStatus");
    if (status == Restart::Restarting) {
        session.console.remark(unit + " is restarting already");
    } else if (waits && status != Restart::Idle) {
        session.console.remark("an earlier restart of " + unit + " was not ended; this is how it went");
    } else {
        confirmUnless(options.yes, session, kRestart);
        status = act(session, options, "TriggerRestart");
    }
    if (!waits && status == Restart::Restarting) {
        showOutcome(session, "Restarting", unit + " restarts; " + again + " tells how it went");
        return;
    }
    waitFor(session, options, "the restart of " + unit,
            "it goes on in the node, and " + again + " waits for its end", [&] {
                if (status == Restart::Restarting) {
                    status = act(session, options, "GetStatus");
                }
                return status != Restart::Restarting;
            });
    closeRestart(session, options, status, unit);
}

struct RestartAlarms
{
    bool isRecovering = false;
    std::set<std::int64_t> channelsDown; ///< Whose link is down.
};

RestartAlarms askAlarms(Session& session)
{
    RestartAlarms alarms;
    const Value answer = session.node().call(kAlarms, {});
    for (const Value& event : answer.value("events", Value::array())) {
        if (!event.value("isActive", false)) {
            continue;
        }
        const std::string name = event.value("eventName", "");
        alarms.isRecovering = alarms.isRecovering || name == "DspRecovery";
        if (name == "LinkDown") {
            alarms.channelsDown.insert(event.value("radioChannelId", std::int64_t{0}));
        }
    }
    return alarms;
}

std::string listed(const std::set<std::int64_t>& channels)
{
    std::string text;
    for (const std::int64_t channel : channels) {
        text += (text.empty() ? "" : ", ") + std::to_string(channel);
    }
    return text;
}

void runRecover(Session& session, const RestartOptions& options)
{
    const RestartAlarms before = askAlarms(session);
    if (before.isRecovering) {
        session.console.remark("the DSP is recovering already");
    } else {
        confirmUnless(options.yes, session, kRecovery);
        session.node().call(kRecovery, {Value{{"Recover", "Dsp"}}});
    }
    if (options.wait->count() == 0) {
        showOutcome(session, "Started", "the DSP recovers; zyrctl recover --wait waits for its end");
        return;
    }
    waitFor(session, options, "the recovery of the DSP",
            "it goes on in the node, and zyrctl recover --wait waits for its end",
            [&] { return !askAlarms(session).isRecovering; });
    std::set<std::int64_t> lost = askAlarms(session).channelsDown;
    if (!before.isRecovering) {
        std::erase_if(lost, [&](std::int64_t channel) { return before.channelsDown.contains(channel); });
    }
    if (!lost.empty()) {
        throw Failure(ExitStatus::Fault,
                      "the DSP has recovered, but the link is down on channel " + listed(lost));
    }
    showOutcome(session, "Recovered", "the DSP has recovered");
}

CLI::App* addSubcommand(CLI::App& app, const char* name, const char* help, RestartOptions& options)
{
    CLI::App* const subcommand = app.add_subcommand(name, help);
    options.wait = subcommand
                       ->add_flag("--wait{60}", options.limit,
                                  "Wait for its end, for 60 or --wait SECONDS, and tell how it went: "
                                  "exit status 1 if it failed")
                       ->check(secondsOfADay());
    subcommand->add_flag("--yes", options.yes, "Do not ask whether traffic may be disturbed");
    return subcommand;
}

} // namespace

void addRestartCommands(CLI::App& app, Session& session)
{
    const auto restartOptions = std::make_shared<RestartOptions>();
    CLI::App* const restart =
        addSubcommand(app, "restart", "Restart the radio unit of a radio channel", *restartOptions);
    restart->add_option("CHANNEL", restartOptions->channel, "Radio channel")
        ->check(CLI::PositiveNumber)
        ->required();
    restart->callback([&session, restartOptions] { runRestart(session, *restartOptions); });

    const auto recoverOptions = std::make_shared<RestartOptions>();
    CLI::App* const recover =
        addSubcommand(app, "recover", "Restart the DSP with all its settings", *recoverOptions);
    recover->callback([&session, recoverOptions] { runRecover(session, *recoverOptions); });
}

} // namespace zyr_ctl
