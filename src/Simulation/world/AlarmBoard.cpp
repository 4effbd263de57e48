#include "AlarmBoard.h"

#include <algorithm>

namespace zyr_simulation
{

using zyr_top_api::AlarmEvent;

void AlarmBoard::raise(std::string_view name, unsigned channel)
{
    const auto known = m_alarms.find(KeyView(name, channel));
    auto& condition = known != m_alarms.end() ? known->second : m_alarms[Key(name, channel)];
    if (!condition.isActive) {
        condition.isActive = true;
        ++condition.count;
        condition.changedAt = m_clock();
        m_changed.notify_all();
    }
}

void AlarmBoard::clear(std::string_view name, unsigned channel)
{
    const auto alarm = m_alarms.find(KeyView(name, channel));
    if (alarm != m_alarms.end() && alarm->second.isActive) {
        alarm->second.isActive = false;
        alarm->second.changedAt = m_clock();
        m_changed.notify_all();
    }
}

void AlarmBoard::set(std::string_view name, unsigned channel, bool active)
{
    active ? raise(name, channel) : clear(name, channel);
}

void AlarmBoard::resetCountsOfInactive()
{
    for (auto& [key, condition] : m_alarms) {
        if (!condition.isActive) {
            condition.count = 0;
        }
    }
    m_changed.notify_all();
}

std::vector<AlarmEvent> AlarmBoard::all() const
{
    const auto alarms = reported();
    return {alarms.begin(), alarms.end()};
}

std::vector<ReportedAlarm> AlarmBoard::reported() const
{
    std::vector<ReportedAlarm> alarms;
    alarms.reserve(m_alarms.size());
    for (const auto& [key, condition] : m_alarms) {
        alarms.push_back({{key.first, condition.isActive, condition.count, key.second}, condition.changedAt});
    }
    return alarms;
}

std::vector<AlarmEvent> AlarmBoard::active() const
{
    auto events = all();
    std::erase_if(events, [](const AlarmEvent& event) { return !event.isActive; });
    return events;
}

AlarmBoard::WaitResult AlarmBoard::waitForChange(std::unique_lock<std::mutex>& lock,
                                                 const std::vector<AlarmEvent>& view)
{
    const auto releases = m_releases;
    const auto isReleased = [&] { return m_isShutDown || m_releases != releases; };
    ++m_waiting;
    m_changed.wait(lock, [&] { return isReleased() || differsFrom(view); });
    --m_waiting;
    return isReleased() ? WaitResult::Released : WaitResult::Changed;
}

void AlarmBoard::release()
{
    ++m_releases;
    m_changed.notify_all();
}

void AlarmBoard::shutdown()
{
    m_isShutDown = true;
    m_changed.notify_all();
}

bool AlarmBoard::differsFrom(const std::vector<AlarmEvent>& view) const
{
    Alarms seen;
    for (const auto& event : view) {
        seen[Key(event.eventName, event.radioChannelId)] = {.isActive = event.isActive,
                                                            .count = event.numberOfTimesEventHasBeenActive};
    }
    return seen != m_alarms;
}

} // namespace zyr_simulation
