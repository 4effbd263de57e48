#include "CriMimoSpatialMuteImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriMimoSpatialMute::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriMimoSpatialMute::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", Mute: " << mute;
}

ETIResult CriMimoSpatialMuteImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IMimoController", m_mimoController)});
}

StandardResponse CriMimoSpatialMuteImpl::execute(const Command& command)
{
    logEnter(trace);
    log(trace, 3, [&](TextWriter& text) {
        text << "muting " << command.mute << ", mimo on radiochannel: " << command.channelId;
    });

    if (command.channelId > m_numberOfChannels) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    if (failed(m_mimoController[command.channelId].mimoSpatialMute(command.mute))) {
        // sic: the prefix of both texts, and no "mute" in the response's
        return failedResponse(trace, "CRI.CriMimoSpatialMute failed to mute mimo diversity",
                              "CRI.CriMimoSpatialMute failed to mimo diversity");
    }
    return {};
}

StandardResponse criMimoSpatialMute(const CriMimoSpatialMute::Command& command)
{
    return ZyrApiHandler::executeCommand(CriMimoSpatialMuteImpl(), command);
}

} // namespace zyr_top_api
