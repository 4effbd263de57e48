#include "SimulatedAlarmHandler.h"

namespace zyr_simulation
{

using zyr_top_api::AlarmEvent;

namespace
{

constexpr ResultCode kReleased = 0x8015;
constexpr std::int32_t kOnlyActive = 1;

} // namespace

ResultCode SimulatedAlarmHandler::getAlarms(std::vector<AlarmEvent>& alarms)
{
    return ask<ResultCode>("getAlarms", [&] { alarms = node().alarms.all(); });
}

ResultCode SimulatedAlarmHandler::getFastAlarms(std::vector<AlarmEvent>& alarms)
{
    if (const auto code = fault("getFastAlarms")) {
        return *code;
    }
    std::unique_lock lock(node().mutex);
    node().settleWhileAwaited();
    if (node().alarms.waitForChange(lock, alarms) == AlarmBoard::WaitResult::Released) {
        return kReleased;
    }
    alarms = node().alarms.all();
    return 0;
}

ResultCode SimulatedAlarmHandler::releaseFastAlarmRequests()
{
    return perform<ResultCode>("releaseFastAlarmRequests", [&] { node().alarms.release(); });
}

ResultCode SimulatedAlarmHandler::getAlarmsByOption(std::int32_t option, std::vector<AlarmEvent>& alarms)
{
    return ask<ResultCode>("getAlarmsByOption", [&] {
        alarms = option == kOnlyActive ? node().alarms.active() : node().alarms.all();
    });
}

ResultCode SimulatedAlarmHandler::setAlarmEvents(const zyr_top_api::TiSetEventsCommand& /*command*/)
{
    return perform<ResultCode>("setAlarmEvents", [&] { node().alarms.resetCountsOfInactive(); });
}

unsigned SimulatedAlarmHandler::hangingRequests() const
{
    return read([&] { return node().alarms.waiting(); });
}

void SimulatedAlarmHandler::shutdown()
{
    locked([&] { node().alarms.shutdown(); });
}

} // namespace zyr_simulation
