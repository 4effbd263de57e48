// events: the alarms of the node, and what becomes of them.

#include "Pictures.h"
#include "Subcommands.h"
#include "Text.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace zyr_ctl
{

namespace
{

constexpr const char* kEvents = "CI.GetEvents";
constexpr const char* kFastEvents = "CI.GetFastEvents";

struct Alarm
{
    bool isActive = false;
    std::int64_t count = 0;
};

using AlarmKey = std::pair<std::string, std::int64_t>; // name and radio channel
using Alarms = std::map<AlarmKey, Alarm>;

Alarms alarmsOf(const Value& answer)
{
    Alarms alarms;
    for (const Value& event : answer.value("events", Value::array())) {
        alarms[{event.value("eventName", ""), event.value("radioChannelId", std::int64_t{0})}] = {
            event.value("isActive", false), event.value("numberOfTimesEventHasBeenActive", std::int64_t{0})};
    }
    return alarms;
}

// What has become of an alarm; nothing if that is not worth a line.
std::string changeOf(const Alarm& before, const Alarm& after)
{
    const bool wasRaised = after.count > before.count;
    if (after.isActive) {
        return wasRaised || !before.isActive ? "raised" : "";
    }
    if (before.isActive) {
        return "cleared";
    }
    return wasRaised ? "raised and cleared" : "";
}

/// Shows what becomes of alarms, a line for each change.
class Follower
{
  public:
    explicit Follower(Session& session) : m_session(session) {}

    void start()
    {
        m_session.node().setTimeout(std::chrono::milliseconds(0));
        m_view = ask(kEvents, {});
        if (m_session.settings.json) {
            m_session.console.print({compactJson(m_view)}); // a line, as all that follow
        } else {
            m_session.console.print(eventsPicture(m_view));
        }
        m_session.console.flush();
    }

    void waitForChange()
    {
        const Value request{{"events", m_view.value("events", Value::array())}};
        try {
            take(ask(m_isGone ? kEvents : kFastEvents,
                     m_isGone ? std::vector<Value>() : std::vector<Value>{request}));
        } catch (const Unreachable& failure) {
            if (!m_isGone) {
                m_session.console.remark("zyrctl: " + printable(failure.what()) + "; trying again");
            }
            m_isGone = true;
            pause();
        } catch (const Failure& failure) {
            const bool isReleased = failure.status() == ExitStatus::Fault &&
                                    std::string_view(failure.what()).ends_with("has been terminated");
            if (!isReleased) {
                throw;
            }
            pause(); // a node that stops releases for ever
        }
    }

  private:
    Value ask(const char* method, const std::vector<Value>& params)
    {
        return m_session.node().call(method, params);
    }

    static void pause() { std::this_thread::sleep_for(std::chrono::seconds(1)); }

    void take(const Value& answer)
    {
        if (m_isGone) {
            m_session.console.remark("zyrctl: the node is back");
        }
        m_isGone = false;
        const Alarms before = alarmsOf(m_view);
        const Alarms after = alarmsOf(answer);
        m_view = answer;
        for (const auto& [key, alarm] : after) {
            const auto known = before.find(key);
            showChange(key, changeOf(known == before.end() ? Alarm() : known->second, alarm));
        }
        for (const auto& [key, alarm] : before) {
            if (!after.contains(key)) {
                showChange(key, changeOf(alarm, Alarm()));
            }
        }
        m_session.console.flush();
    }

    void showChange(const AlarmKey& key, const std::string& change)
    {
        if (change.empty()) {
            return;
        }
        const auto& [name, channel] = key;
        if (m_session.settings.json) {
            m_session.console.print({compactJson({{"time", dateAndTime()},
                                                  {"change", change},
                                                  {"eventName", name},
                                                  {"radioChannelId", channel}})});
        } else {
            m_session.console.print({dateAndTime() + "  " + printable(name) +
                                     (channel == 0 ? "" : " on channel " + std::to_string(channel)) + ": " +
                                     change});
        }
    }

    Session& m_session;
    Value m_view;
    bool m_isGone = false;
};

void runEvents(Session& session, bool follow)
{
    if (!follow) {
        const Value answer = session.node().call(kEvents, {});
        session.show(answer, eventsPicture(answer));
        return;
    }
    Follower follower(session);
    follower.start();
    for (;;) {
        follower.waitForChange();
    }
}

} // namespace

void addEventsCommand(CLI::App& app, Session& session)
{
    const auto follow = std::make_shared<bool>(false);
    CLI::App* const events = app.add_subcommand("events", "The alarms of the node");
    events->add_flag(
        "--follow", *follow,
        "Then a line for each change, with its time, until Ctrl-C; goes on when the node comes back");
    events->callback([&session, follow] { runEvents(session, *follow); });
}

} // namespace zyr_ctl
