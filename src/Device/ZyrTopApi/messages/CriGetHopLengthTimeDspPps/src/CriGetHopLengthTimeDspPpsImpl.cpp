#include "CriGetHopLengthTimeDspPpsImpl.h"

#include "Failure.h"
#include "IDspChannelApi.h"
#include "Initialise.h"
#include "Log.h"
#include "Required.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriGetHopLengthTimeDspPps::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriGetHopLengthTimeDspPps::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << "\n";
}

std::string CriGetHopLengthTimeDspPps::Response::printResponse() const
{
    return printed(*this);
}

void CriGetHopLengthTimeDspPps::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "PpsHopLengthTime: " << ppsHopLengthTime << "\n";
}

ETIResult CriGetHopLengthTimeDspPpsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

CriGetHopLengthTimeDspPps::Response CriGetHopLengthTimeDspPpsImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });

    if (m_numberOfChannels < command.channelId) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
    }
    IDspChannelApi& dspChannelApi =
        required(m_dspApi[command.channelId].getDspChannelApi(), command.channelId);
    Response response;
    if (failed(dspChannelApi.ppsHopLengthTimeGet(response.ppsHopLengthTime))) {
        fail(response, trace, "CRI.GetHopLengthTimeDspPps failed to get hop length time.");
        return response;
    }
    log(trace, 5,
        [&](TextWriter& text) { text << "DSP PPS hop length time [nsec] = " << response.ppsHopLengthTime; });
    return response;
}

CriGetHopLengthTimeDspPps::Response
criGetHopLengthTimeDspPps(const CriGetHopLengthTimeDspPps::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetHopLengthTimeDspPpsImpl(), command);
}

} // namespace zyr_top_api
