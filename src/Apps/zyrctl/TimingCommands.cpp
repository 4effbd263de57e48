// pps and clock: the pulse per second of a radio channel, and the node's time.

#include "Failure.h"
#include "Limits.h"
#include "Pictures.h"
#include "Subcommands.h"
#include "Text.h"
#include "UtcTime.h"
#include "Watch.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <thread>
#include <utility>

namespace zyr_ctl
{

namespace
{

constexpr const char* kCalibration = "CRI.GetCalibrationStatusDspPps";
constexpr const char* kHopLength = "CRI.GetHopLengthTimeDspPps";
constexpr const char* kState = "SIM.GetState";
constexpr const char* kClock = "TI.ManageRealTimeClock";

struct PpsOptions
{
    std::int64_t channel = 1;
    WatchOptions watch;
};

/// The states that a calibration has been seen in, and for how long, the latest last.
class Progress
{
  public:
    void saw(const std::string& state)
    {
        const auto now = std::chrono::steady_clock::now();
        if (!m_states.empty()) {
            m_states.back().end = now;
        }
        if (m_states.empty() || m_states.back().name != state) {
            m_states.push_back({state, now, now});
        }
        if (m_states.size() > kStates) { // a calibration that is repeated has no end
            m_states.pop_front();
        }
    }

    std::string text() const
    {
        std::string text;
        for (const State& state : m_states) {
            const auto seconds = std::chrono::floor<std::chrono::seconds>(state.end - state.begin);
            text += (text.empty() ? "" : " > ") + state.name + " " + std::to_string(seconds.count()) + " s";
        }
        return text;
    }

  private:
    static constexpr std::size_t kStates = 5;

    struct State
    {
        std::string name;
        std::chrono::steady_clock::time_point begin;
        std::chrono::steady_clock::time_point end;
    };
    std::deque<State> m_states;
};

/// The way to the pulse's settings, which no command tells: a simulated node shows them in its state.
class Settings
{
  public:
    Settings(Session& session, std::int64_t channel) : m_session(session), m_channel(channel)
    {
        const auto methods = session.node().methods();
        m_isTold = std::ranges::find(methods, kState) != methods.end();
        if (m_isTold) {
            const auto description = session.node().describe(kState);
            const FieldDescription* const channels =
                description ? findField(description->response, "channels") : nullptr;
            const FieldDescription* const pps = channels == nullptr || channels->element.empty()
                                                    ? nullptr
                                                    : findField(channels->element.front().fields, "pps");
            m_fields = pps == nullptr ? Fields() : pps->fields;
        }
    }

    const Fields& fields() const { return m_fields; }

    Value ask() const
    {
        if (m_isTold) {
            const Value state = m_session.node().call(kState, {});
            const auto channels = state.find("channels");
            for (const Value& channel : channels == state.end() ? Value::array() : *channels) {
                const auto number = channel.find("number");
                const auto pps = channel.find("pps");
                if (number != channel.end() && *number == m_channel && pps != channel.end()) {
                    return *pps;
                }
            }
        }
        return Value::object();
    }

  private:
    Session& m_session;
    std::int64_t m_channel;
    bool m_isTold = false;
    Fields m_fields;
};

// That the DSP has no measurement is no reason to tell nothing.
Value askHopLength(Session& session, const Value& request)
{
    try {
        return session.node().call(kHopLength, {request});
    } catch (const Failure& failure) {
        if (failure.status() != ExitStatus::Fault) {
            throw;
        }
        return failure.json();
    }
}

std::string failureIn(const Value& answer)
{
    const auto error = answer.find("error");
    return error == answer.end() ? "" : error->value("text", "-");
}

Fields responseOf(Session& session, const char* method)
{
    const auto description = session.node().describe(method);
    return description ? description->response : Fields();
}

void runPps(Session& session, const PpsOptions& options)
{
    const Value request{{"channelId", options.channel}};
    const Settings settings(session, options.channel);
    const auto ask = [&] {
        return Value{{kCalibration, session.node().call(kCalibration, {request})},
                     {kHopLength, askHopLength(session, request)},
                     {"settings", settings.ask()}};
    };
    PpsAnswers answers{.calibration = {{}, responseOf(session, kCalibration)},
                       .hopLength = {{}, {}},
                       .settings = {{}, settings.fields()},
                       .noHopLength = {}};
    const auto picture = [&](const Value& answer, const std::string& progress) {
        answers.calibration.answer = answer[kCalibration];
        answers.hopLength.answer = answer[kHopLength];
        answers.settings.answer = answer["settings"];
        answers.noHopLength = failureIn(answer[kHopLength]);
        return ppsPicture(options.channel, answers, progress);
    };
    if (options.watch.watch->count() == 0) {
        const Value answer = ask();
        session.show(answer, picture(answer, ""));
        return;
    }
    Progress progress;
    watchPicture(session, options.watch, ask, [&](const Value& answer) {
        progress.saw(calibrationState({answer[kCalibration], answers.calibration.fields}));
        return picture(answer, progress.text());
    });
}

// The next full second, when it has come: the wire knows no parts of a second.
std::chrono::sys_seconds fullSecond()
{
    const auto second = std::chrono::ceil<std::chrono::seconds>(std::chrono::system_clock::now());
    std::this_thread::sleep_until(second);
    return second;
}

std::string timeToSet(const std::string& text)
{
    return text == "now" ? wireTime(fullSecond()) : wireTime(text);
}

void runClock(Session& session, const std::string& time)
{
    const Value answer = session.node().call(kClock, {Value{{"dateTime", time}}});
    const auto told = answer.find("dateTime");
    if (told == answer.end() || !told->is_string()) {
        throw Failure(ExitStatus::Protocol, std::string(kClock) + " does not tell the time");
    }
    session.show(answer, {{printable(utcTime(told->get<std::string>()))}});
}

} // namespace

void addTimingCommands(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<PpsOptions>();
    CLI::App* const pps = app.add_subcommand("pps", "The pulse per second of a radio channel");
    pps->add_option("CHANNEL", options->channel, "Radio channel (1)")->check(oneOrMore());
    addWatchOptions(*pps, options->watch);
    pps->callback([&session, options] { runPps(session, *options); });

    const auto time = std::make_shared<std::string>();
    CLI::App* const clock = app.add_subcommand("clock", "The node's time, in UTC");
    const CLI::Option* const set = clock->add_option(
        "--set", *time,
        "Set it: a time in UTC as 2026-01-14T08:30:05Z, or now, this computer's time at its "
        "next full second");
    clock->callback([&session, time, set] { runClock(session, set->count() == 0 ? "" : timeToSet(*time)); });
}

} // namespace zyr_ctl
