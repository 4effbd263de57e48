#include "CriSetOutputModeDspPpsImpl.h"

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

constinit TylTrace trace{CriSetOutputModeDspPps::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriSetOutputModeDspPps::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", PpsOutputMode: " << ppsOutputModeToString(ppsOutputMode)
         << "\n";
}

ETIResult CriSetOutputModeDspPpsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

StandardResponse CriSetOutputModeDspPpsImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.channelId) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    IDspChannelApi& dspChannelApi =
        required(m_dspApi[command.channelId].getDspChannelApi(), command.channelId);
    if (failed(dspChannelApi.ppsOutputModeSet(command.ppsOutputMode))) {
        return failedResponse(trace, "CRI.SetOutputModeDspPps failed to set outputMode");
    }
    return {};
}

StandardResponse criSetOutputModeDspPps(const CriSetOutputModeDspPps::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetOutputModeDspPpsImpl(), command);
}

} // namespace zyr_top_api
