#include "TiGetAcmThresholdsImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "Required.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiGetAcmThresholds::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

std::string TiGetAcmThresholds::Response::printResponse() const
{
    return printed(*this);
}

void TiGetAcmThresholds::Response::print(TextWriter& text) const
{
    printResultLine(*this, text);
}

ETIResult TiGetAcmThresholdsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

TiGetAcmThresholds::Response TiGetAcmThresholdsImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });

    if (m_numberOfChannels < command.channelId) {
        // sic: a small "d", unlike other commands
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds");
    }
    Response response;
    response.thresholds =
        required(m_dspApi[command.channelId].getAcmApi(), command.channelId).getAcmThresholds();
    return response;
}

} // namespace zyr_top_api
