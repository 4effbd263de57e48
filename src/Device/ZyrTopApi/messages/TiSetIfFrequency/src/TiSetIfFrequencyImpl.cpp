#include "TiSetIfFrequencyImpl.h"

#include "IDspChannelApi.h"
#include "Initialise.h"
#include "Log.h"
#include "Required.h"
#include "ResultLaw.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiSetIfFrequency::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr std::uint32_t kTransmit = 0;
constexpr std::uint32_t kReceive = 1;

} // namespace

ETIResult TiSetIfFrequencyImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

StandardResponse TiSetIfFrequencyImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });
    if (command.channelId > m_numberOfChannels) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds"}; // sic: a small d
    }
    if (command.direction != kTransmit && command.direction != kReceive) {
        return {eTI_E_INVALID_ARGUMENT, "Direction TX/RX not valid"};
    }
    IDspChannelApi& channelApi = required(m_dspApi[command.channelId].getDspChannelApi(), command.channelId);
    const ETIResult result = command.direction == kTransmit ? channelApi.setTxFrequency(command.frequency)
                                                            : channelApi.setRxFrequency(command.frequency);
    if (failed(result)) {
        return {eTI_E_FAILED, "Failed to set IF Frequency to DSP"};
    }
    return {};
}

} // namespace zyr_top_api
