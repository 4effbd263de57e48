#include "CiGetEventsImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CiGetEvents::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CiGetEvents::Command::print(TextWriter& text) const
{
    text << " Received\n";
}

ETIResult CiGetEventsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kNodeWide, numberOfChannels,
                      {nodeWide("IAlarmHandlerTopApi", m_alarmHandler)});
}

CiGetEvents::Response CiGetEventsImpl::execute(const Command&)
{
    logEnter(trace);
    Response response;
    if (failed(m_alarmHandler->getAlarms(response.events))) {
        fail(response, trace, "CI.GetEvents failed to get alarms");
    }
    return response;
}

CiGetEvents::Response ciGetEvents(const CiGetEvents::Command& command)
{
    return ZyrApiHandler::executeCommand(CiGetEventsImpl(), command);
}

} // namespace zyr_top_api
