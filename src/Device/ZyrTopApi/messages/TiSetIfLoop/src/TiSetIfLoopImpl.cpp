#include "TiSetIfLoopImpl.h"

#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiSetIfLoop::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void TiSetIfLoop::Command::print(TextWriter& text) const
{
    text << "RadioChannelId: " << channelId << ", IfLoop: " << ifLoop;
}

ETIResult TiSetIfLoopImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IIfLoopDriver", m_ifLoopDriver,
                                  textAndChannel("Could not find the IIfLoopDriver interface for ct: "))});
}

StandardResponse TiSetIfLoopImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "msg:";
        command.print(text);
    });
    if (command.channelId > m_numberOfChannels) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds"}; // sic: a small d
    }
    if (m_numberOfChannels == 0) {
        return {eTI_E_FAILED, "TiSetIfLoopImpl has not been initialized"};
    }
    if (failedUnlessZero(m_ifLoopDriver[command.channelId].setIfLoop(command.ifLoop != 0))) {
        return {eTI_E_FAILED, "failed to set IF loop"};
    }
    return {};
}

} // namespace zyr_top_api
