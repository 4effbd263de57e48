#include "CriXpicSlaveMuteImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriXpicSlaveMute::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriXpicSlaveMute::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", Mute: " << mute;
}

ETIResult CriXpicSlaveMuteImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("ICcdpController", m_ccdpController)});
}

StandardResponse CriXpicSlaveMuteImpl::execute(const Command& command)
{
    logEnter(trace);
    log(trace, 3, [&](TextWriter& text) {
        text << "muting " << command.mute << ", slave on radiochannel: " << command.channelId;
    });

    if (command.channelId > m_numberOfChannels) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    if (failed(m_ccdpController[command.channelId].xpicMute(command.mute))) {
        return failedResponse(trace, "CRI.XpicSlaveMute failed to mute xpic slave");
    }
    return {};
}

StandardResponse criXpicSlaveMute(const CriXpicSlaveMute::Command& command)
{
    return ZyrApiHandler::executeCommand(CriXpicSlaveMuteImpl(), command);
}

} // namespace zyr_top_api
