#include "CriGetAcmModeImpl.h"

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

constinit TylTrace trace{CriGetAcmMode::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriGetAcmMode::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << "\n";
}

ETIResult CriGetAcmModeImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

CriGetAcmMode::Response CriGetAcmModeImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });

    Response response;
    if (m_numberOfChannels < command.channelId) {
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
        return response;
    }
    IDspAcmApi& acmApi = required(m_dspApi[command.channelId].getAcmApi(), command.channelId);
    if (failed(acmApi.getAcmMode(response.acmMode, response.acmModePosition))) {
        // sic: both speak of setting, and the log says it otherwise than the response does
        fail(response, trace, "CRI.CriGetAcmMode failed to set ACM mode",
             "CRI.GetAcmMode failed to set ACM mode");
        return response;
    }
    log(trace, 5, [&](TextWriter& text) {
        text << "cmd:RadioChannelID: " << command.channelId
             << "\n, rsp:AcmMode: " << acmModeToString(response.acmMode)
             << ", Position: " << acmModePositionToString(response.acmModePosition) << "\n";
    });
    return response;
}

CriGetAcmMode::Response criGetAcmMode(const CriGetAcmMode::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetAcmModeImpl(), command);
}

} // namespace zyr_top_api
