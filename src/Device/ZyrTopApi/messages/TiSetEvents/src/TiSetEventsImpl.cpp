#include "TiSetEventsImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiSetEvents::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

ETIResult TiSetEventsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kNodeWide, numberOfChannels,
                      {nodeWide("IAlarmHandlerTopApi", m_alarmHandler)});
}

StandardResponse TiSetEventsImpl::execute(const Command& command)
{
    logEnter(trace);
    if (failed(m_alarmHandler->setAlarmEvents(command))) {
        // sic: the log speaks of getting, the response of setting
        return failedResponse(trace, "TI.SetEvents failed to get alarms",
                              "TI.SetEvents failed to set alarm events");
    }
    return {};
}

} // namespace zyr_top_api
