#include "TiGetIfLoopImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiGetIfLoop::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void TiGetIfLoop::Command::print(TextWriter& text) const
{
    text << "RadioChannelId: " << channelId;
}

std::string TiGetIfLoop::Response::printResponse() const
{
    return printed(*this);
}

void TiGetIfLoop::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "IFLoop: " << ifLoop << ", BarState: " << barState;
}

ETIResult TiGetIfLoopImpl::initialize(unsigned numberOfChannels)
{
    // sic: two blanks
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IIfLoopDriver", m_ifLoopDriver,
                                  textAndChannel("Could not find the IIfLoopDriver  interface for ct: "))});
}

TiGetIfLoop::Response TiGetIfLoopImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "msg:";
        command.print(text);
    });
    if (command.channelId > m_numberOfChannels) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds"); // sic: a small d
    }
    if (m_numberOfChannels == 0) {
        return refusal<Response>(eTI_E_FAILED, "TiGetIfLoopImpl has not been initialized");
    }
    unsigned char ifLoop = 0;
    if (failedUnlessZero(m_ifLoopDriver[command.channelId].getIfLoop(ifLoop))) {
        return refusal<Response>(eTI_E_FAILED, "failed to get IF loop");
    }
    Response response;
    response.ifLoop = ifLoop;
    return response;
}

} // namespace zyr_top_api
