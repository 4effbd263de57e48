#include "CiReleaseFastEventsRequestsImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CiReleaseFastEventsRequests::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CiReleaseFastEventsRequests::Command::print(TextWriter& text) const
{
    text << " Received\n";
}

ETIResult CiReleaseFastEventsRequestsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kNodeWide, numberOfChannels,
                      {nodeWide("IAlarmHandlerTopApi", m_alarmHandler)});
}

StandardResponse CiReleaseFastEventsRequestsImpl::execute(const Command&)
{
    logEnter(trace);
    if (failed(m_alarmHandler->releaseFastAlarmRequests())) {
        // sic: the class's name behind the family's
        return failedResponse(
            trace, "CI.ReleaseFastEventsRequestsImpl failed to release hanging GetFastAlarm requests");
    }
    return {};
}

StandardResponse ciReleaseFastEventsRequests(const CiReleaseFastEventsRequests::Command& command)
{
    return ZyrApiHandler::executeCommand(CiReleaseFastEventsRequestsImpl(), command);
}

} // namespace zyr_top_api
