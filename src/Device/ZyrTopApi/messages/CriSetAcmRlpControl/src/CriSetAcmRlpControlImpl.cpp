#include "CriSetAcmRlpControlImpl.h"

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

constinit TylTrace trace{CriSetAcmRlpControl::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriSetAcmRlpControl::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", AcmRlpControl: " << acmRlpControlToString(acmRlpControl)
         << "\n";
}

ETIResult CriSetAcmRlpControlImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

StandardResponse CriSetAcmRlpControlImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.channelId) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    IDspAcmApi& acmApi = required(m_dspApi[command.channelId].getAcmApi(), command.channelId);
    if (failed(acmApi.setAcmRlpControl(command.acmRlpControl))) {
        return failedResponse(trace, "CRI.CriSetAcmRlpControl failed to set ACM RLP control");
    }
    return {};
}

StandardResponse criSetAcmRlpControl(const CriSetAcmRlpControl::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetAcmRlpControlImpl(), command);
}

} // namespace zyr_top_api
