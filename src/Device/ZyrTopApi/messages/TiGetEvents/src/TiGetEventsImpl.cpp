#include "TiGetEventsImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiGetEvents::identity.traceChannel, 3, TylTraceHdrOption_Default};

// From this option on the handler's answer isn't a list to be printed.
constexpr std::int32_t kFirstUnprintedOption = 2;

} // namespace

std::string TiGetEvents::Response::printResponse() const
{
    return printed(*this);
}

void TiGetEvents::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    if (requestOption >= kFirstUnprintedOption) {
        return;
    }
    // sic: neither the order nor the flag of the event's own text form
    text << "Events: \n";
    for (const AlarmEvent& event : events) {
        text << "AlarmEvent: eventName: " << event.eventName << ", radioChannelId: " << event.radioChannelId
             << ", isActive: " << event.isActive
             << ", numberOfTimesEventHasBeenActive: " << event.numberOfTimesEventHasBeenActive << "\n";
    }
}

ETIResult TiGetEventsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kNodeWide, numberOfChannels,
                      {nodeWide("IAlarmHandlerTopApi", m_alarmHandler)});
}

TiGetEvents::Response TiGetEventsImpl::execute(const Command& command)
{
    logEnter(trace);
    Response response;
    response.requestOption = command.requestOption;
    if (failed(m_alarmHandler->getAlarmsByOption(command.requestOption, response.events))) {
        fail(response, trace, "TI.GetEvents failed to get alarms");
    }
    return response;
}

} // namespace zyr_top_api
