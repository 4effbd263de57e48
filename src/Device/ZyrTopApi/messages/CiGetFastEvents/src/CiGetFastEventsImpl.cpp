#include "CiGetFastEventsImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CiGetFastEvents::identity.traceChannel, 3, TylTraceHdrOption_Default};

// What the alarm handler answers to a request that "CI.ReleaseFastEventsRequests" released.
constexpr ResultCode kReleased = 0x8015;

} // namespace

void CiGetFastEvents::Command::print(TextWriter& text) const
{
    // sic: each event's text ends its line, and one more line feed follows
    text << "Events: ";
    for (const AlarmEvent& event : events) {
        text << event.toString() << "\n";
    }
}

std::string CiGetFastEvents::Response::printResponse() const
{
    return printed(*this);
}

std::string CiGetFastEvents::Response::toString() const
{
    return printed(*this);
}

void CiGetFastEvents::Response::print(TextWriter& text) const
{
    text << "Events:\n";
    for (const AlarmEvent& event : events) {
        text << event.toString();
    }
}

ETIResult CiGetFastEventsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kNodeWide, numberOfChannels,
                      {nodeWide("IAlarmHandlerTopApi", m_alarmHandler)});
}

CiGetFastEvents::Response CiGetFastEventsImpl::execute(const Command& command)
{
    logEnter(trace);
    Response response;
    response.events = command.events;
    const ResultCode result = m_alarmHandler->getFastAlarms(response.events);
    if (result == kReleased) {
        log(trace, 2, "CI.GetFastEvents has been terminated");
        setResult(response, eTI_E_FAILED, "CI.GetFastEvents has been terminated");
    } else if (failed(result)) {
        fail(response, trace, "CI.GetFastEvents failed to get alarms");
    }
    return response;
}

CiGetFastEvents::Response ciGetFastEvents(const CiGetFastEvents::Command& command)
{
    return ZyrApiHandler::executeCommand(CiGetFastEventsImpl(), command);
}

} // namespace zyr_top_api
