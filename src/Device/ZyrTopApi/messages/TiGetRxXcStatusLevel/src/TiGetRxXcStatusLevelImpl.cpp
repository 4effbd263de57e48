#include "TiGetRxXcStatusLevelImpl.h"

#include "Failure.h"
#include "IDspStatusApi.h"
#include "Initialise.h"
#include "Log.h"
#include "Required.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiGetRxXcStatusLevel::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void TiGetRxXcStatusLevel::Command::print(TextWriter& text) const
{
    text << "RadioChannelId: " << channelId;
}

std::string TiGetRxXcStatusLevel::Response::printResponse() const
{
    return printed(*this);
}

void TiGetRxXcStatusLevel::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RslCh0: " << rslCh0 << ", RslCh1: " << rslCh1;
}

ETIResult TiGetRxXcStatusLevelImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

TiGetRxXcStatusLevel::Response TiGetRxXcStatusLevelImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "msg:";
        command.print(text);
    });
    if (command.channelId > m_numberOfChannels) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds"); // sic: a small d
    }
    if (m_numberOfChannels == 0) {
        return refusal<Response>(eTI_E_FAILED, "TiGetRxXcStatusLevelImpl has not been initialized");
    }
    std::int16_t level0 = 0;
    std::int16_t level1 = 0;
    if (failed(required(m_dspApi[command.channelId].getDspStatusApi(), command.channelId)
                   .getRxXcStatusLevel(&level0, &level1))) {
        return refusal<Response>(eTI_E_FAILED, "Failed to get RX XC status level");
    }
    Response response;
    response.rslCh0 = level0;
    response.rslCh1 = level1;
    return response;
}

TiGetRxXcStatusLevel::Response tiGetRxXcStatusLevel(const TiGetRxXcStatusLevel::Command& command)
{
    return ZyrApiHandler::executeCommand(TiGetRxXcStatusLevelImpl(), command);
}

} // namespace zyr_top_api
