#include "CriSetSourceDspPpsImpl.h"

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

constinit TylTrace trace{CriSetSourceDspPps::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriSetSourceDspPps::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", PpsSource: " << ppsSourceToString(ppsSource)
         << ", PpsOffsetNanoSec: " << ppsOffsetNanoSec << "\n";
}

ETIResult CriSetSourceDspPpsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

StandardResponse CriSetSourceDspPpsImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.channelId) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    IDspChannelApi& dspChannelApi =
        required(m_dspApi[command.channelId].getDspChannelApi(), command.channelId);
    if (failed(dspChannelApi.ppsConfigure(command.ppsSource, command.ppsOffsetNanoSec))) {
        return failedResponse(trace, "CRI.SetSourceDspPps failed to configure");
    }
    return {};
}

StandardResponse criSetSourceDspPps(const CriSetSourceDspPps::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetSourceDspPpsImpl(), command);
}

} // namespace zyr_top_api
