#include "CriEnableAcmImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriEnableAcm::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriEnableAcm::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << "\nEnabled: " << enable << "\n";
}

ETIResult CriEnableAcmImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IAcmHandler", m_acmHandler)});
}

StandardResponse CriEnableAcmImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.channelId) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    if (failed(m_acmHandler[command.channelId].enableAcm(command.enable))) {
        // sic: the log says it otherwise than the response does
        return command.enable ? failedResponse(trace, "CRI.EnableAcm failed to Enabled ACM",
                                               "CRI.EnableAcm failed to enable ACM")
                              : failedResponse(trace, "CRI.EnableAcm failed to Disabled ACM",
                                               "CRI.EnableAcm failed to disable ACM");
    }
    return {};
}

StandardResponse criEnableAcm(const CriEnableAcm::Command& command)
{
    return ZyrApiHandler::executeCommand(CriEnableAcmImpl(), command);
}

} // namespace zyr_top_api
