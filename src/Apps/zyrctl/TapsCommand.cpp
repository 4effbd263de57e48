// taps: the state of TAPS of a channel, and the samples of its log as they are taken.

#include "Limits.h"
#include "StopSignals.h"
#include "Subcommands.h"
#include "Text.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zyr_ctl
{

namespace
{

constexpr const char* kTaps = "TI.ManageTaps";

struct TapsOptions
{
    std::int64_t channel = 1;
    bool log = false;
    bool csv = false;
    std::int64_t period = 0; ///< seconds; 0: as it is
    std::uint64_t count = 0; ///< samples; 0: until somebody stops it
};

Value manageTaps(Session& session, const TapsOptions& options, const std::string& logRequest = {},
                 std::int64_t period = 0)
{
    Value command{{"RadioChannelID", options.channel}};
    if (!logRequest.empty()) {
        command["LogRequestOption"] = logRequest;
    }
    if (period != 0) {
        command["Time"] = period;
    }
    return session.node().call(kTaps, {command});
}

/// The log of a channel. One that wasn't running is started, and stopped again in the end.
class FollowedLog
{
  public:
    FollowedLog(Session& session, const TapsOptions& options) : m_session(session), m_options(options)
    {
        if (options.period != 0) {
            manageTaps(session, options, "SetLogPeriod", options.period);
        }
        const Value state = manageTaps(session, options);
        m_period = std::chrono::seconds(state.value("LogPeriodSec", std::int64_t{1}));
        m_isOwn = !state.value("TapsLogActive", false);
        if (m_isOwn) {
            manageTaps(session, options, "StartLog");
        }
    }
    ~FollowedLog()
    {
        try {
            stop();
        } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): the failure on its way tells enough
        }
    }
    FollowedLog(const FollowedLog&) = delete;
    FollowedLog& operator=(const FollowedLog&) = delete;

    std::chrono::seconds period() const { return m_period; }

    /// The oldest sample that hasn't been read, if there is one.
    std::optional<Value> sample()
    {
        try {
            Value answer = manageTaps(m_session, m_options, "ReadSample");
            return answer.value("TapsLogData", Value::object());
        } catch (const Failure& failure) {
            const bool isEmpty = failure.status() == ExitStatus::Fault &&
                                 std::string_view(failure.what()).ends_with("failed to read sample from log");
            if (!isEmpty) {
                throw;
            }
            return std::nullopt;
        }
    }

    void stop()
    {
        if (m_isOwn) {
            m_isOwn = false;
            manageTaps(m_session, m_options, "StopLog");
        }
    }

  private:
    Session& m_session;
    const TapsOptions& m_options;
    std::chrono::seconds m_period{1};
    bool m_isOwn = false;
};

std::string cellText(const Value& value)
{
    return value.is_string() ? value.get<std::string>() : compactJson(value);
}

std::string csvCell(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char character : text) {
        quoted += character == '"' ? std::string("\"\"") : std::string(1, character);
    }
    return quoted + "\"";
}

std::string csvRow(const Value& sample, bool isHeading)
{
    std::string text;
    for (const auto& [name, value] : sample.items()) {
        text += (text.empty() ? "" : ",") + csvCell(isHeading ? name : cellText(value));
    }
    return text;
}

// A row of the table, each cell as wide as its heading at least.
std::string tableRow(const Value& sample, const std::vector<FieldDescription>& fields, bool isHeading)
{
    constexpr std::size_t leastWidth = 9;
    std::string text;
    for (const auto& [name, value] : sample.items()) {
        const std::string cell = isHeading ? printable(name) : shownValue(value, findField(fields, name));
        text += (text.empty() ? "" : "  ") + padded(cell, std::max(widthOf(name), leastWidth));
    }
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

void showSample(Session& session, const TapsOptions& options, const std::vector<FieldDescription>& fields,
                const Value& sample, bool isFirst)
{
    const auto row = [&](bool isHeading) {
        return options.csv ? csvRow(sample, isHeading) : tableRow(sample, fields, isHeading);
    };
    if (session.settings.json) {
        session.console.print({compactJson(sample)});
    } else {
        if (isFirst) {
            session.console.print({row(true)});
        }
        session.console.print({row(false)});
    }
    session.console.flush();
}

void follow(Session& session, const TapsOptions& options)
{
    const std::vector<FieldDescription> response = session.node().responseOf(kTaps);
    const FieldDescription* const samples = findField(response, "TapsLogData");
    const std::vector<FieldDescription> fields =
        samples == nullptr ? std::vector<FieldDescription>() : samples->fields;
    const StopSignals stopSignals;
    FollowedLog log(session, options);
    std::uint64_t shown = 0;
    for (bool isStopped = false; !isStopped;) {
        const std::optional<Value> sample = log.sample();
        if (sample) {
            showSample(session, options, fields, *sample, shown == 0);
            ++shown;
        }
        const bool isEnough = options.count != 0 && shown >= options.count;
        const bool isMoreWaiting = sample && sample->value("samplesRemaining", 0) > 0;
        isStopped =
            isEnough || stopSignals.hasComeWithin(isMoreWaiting ? std::chrono::seconds(0) : log.period());
    }
    log.stop();
}

void runTaps(Session& session, const TapsOptions& options)
{
    if (options.log) {
        follow(session, options);
        return;
    }
    const Value state = manageTaps(session, options);
    session.show(state, renderAnswer(state, session.node().responseOf(kTaps), {}, session.console.room()));
}

} // namespace

void addTapsCommand(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<TapsOptions>();
    CLI::App* const taps = app.add_subcommand("taps", "TAPS of a radio channel (a test command)");
    taps->add_option("CHANNEL", options->channel, "Radio channel (1)")->check(oneOrMore());
    CLI::Option* const log =
        taps->add_flag("--log", options->log,
                       "Show the samples of the log until Ctrl-C; stops the log if it has started it");
    taps->add_flag("--csv", options->csv, "With --log: as comma-separated values")->needs(log);
    taps->add_option("--period", options->period, "With --log: seconds between two samples")
        ->check(CLI::Range(std::int64_t{1}, std::int64_t{86400}))
        ->needs(log);
    taps->add_option("--count", options->count, "With --log: stop behind N samples")
        ->check(oneOrMore())
        ->needs(log);
    taps->callback([&session, options] { runTaps(session, *options); });
}

} // namespace zyr_ctl
