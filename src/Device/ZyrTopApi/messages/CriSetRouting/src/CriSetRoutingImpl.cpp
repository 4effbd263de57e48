#include "CriSetRoutingImpl.h"

#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetRouting::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriSetRouting::Command::print(TextWriter& text) const
{
    text << "RadioChannel ID: " << RadioChannelID << "\nDestination ID: " << DestinationID
         << "\nRouteType: " << routeTypeToString(RouteType) << "\n";
}

ETIResult CriSetRoutingImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {nodeWide("IRouteUpdater", m_routeUpdater)});
}

StandardResponse CriSetRoutingImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.RadioChannelID; });
    log(trace, 5, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.RadioChannelID) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    if (IRouteUpdater* const routeUpdater = m_routeUpdater.find(); routeUpdater != nullptr) {
        routeUpdater->updateRoute({{command.RadioChannelID, command.DestinationID}}, command.RouteType);
    }
    return {};
}

StandardResponse criSetRouting(const CriSetRouting::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetRoutingImpl(), command);
}

} // namespace zyr_top_api
