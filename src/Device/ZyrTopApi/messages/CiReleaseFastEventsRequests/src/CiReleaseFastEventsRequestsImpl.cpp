#include "CiReleaseFastEventsRequestsImpl.h"

#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CiReleaseFastEventsRequests::identity.traceChannel, 3, TylTraceHdrOption_Default};

// sic: the class's name behind the family's
constexpr const char* kFailure =
    "CI.ReleaseFastEventsRequestsImpl failed to release hanging GetFastAlarm requests";

} // namespace

void CiReleaseFastEventsRequests::Command::print(TextWriter& text) const
{
    text << " Received\n";
}

ETIResult CiReleaseFastEventsRequestsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kNodeWide, numberOfChannels, nullptr,
                      {nodeWide("IAlarmHandlerTopApi", m_alarmHandler)});
}

StandardResponse CiReleaseFastEventsRequestsImpl::execute(const Command&)
{
    logEnter(trace);
    if (failed(m_alarmHandler->releaseFastAlarmRequests())) {
        log(trace, 1, kFailure);
        return {eTI_E_FAILED, kFailure};
    }
    return {};
}

StandardResponse ciReleaseFastEventsRequests(const CiReleaseFastEventsRequests::Command& command)
{
    return ZyrApiHandler::executeCommand(CiReleaseFastEventsRequestsImpl(), command);
}

} // namespace zyr_top_api
