#include "CriSetAcmModeImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "Required.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetAcmMode::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriSetAcmMode::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", AcmMode: " << acmModeToString(acmMode)
         << ", AcmModePosition: " << acmModePositionToString(acmModePosition) << "\n";
}

ETIResult CriSetAcmModeImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

StandardResponse CriSetAcmModeImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.channelId) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    IDspAcmApi& acmApi = required(m_dspApi[command.channelId].getAcmApi(), command.channelId);
    if (failed(acmApi.setAcmMode(command.acmMode, command.acmModePosition))) {
        // sic: the log says it otherwise than the response does
        return failedResponse(trace, "CRI.CriSetAcmMode failed to set ACM mode",
                              "CRI.SetAcmMode failed to set ACM mode");
    }
    return {};
}

StandardResponse criSetAcmMode(const CriSetAcmMode::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetAcmModeImpl(), command);
}

} // namespace zyr_top_api
