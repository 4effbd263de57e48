#include "TiGetDspTxModeImpl.h"

#include "EDspATxMode.h"
#include "EnumText.h"
#include "Failure.h"
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

constinit TylTrace trace{TiGetDspTxMode::identity.traceChannel, 3, TylTraceHdrOption_Default};

using bcm::types::ModemChain;

// The signals that a test reads. The write has another word for the normal one.
constexpr auto kSignals = std::to_array<EnumTextRow<EDspATxMode>>({
    {eDspATxModeNormal, "NormalOperation"},
    {eDspATxModeOneTone, "OneTone"},
    {eDspATxModeTwoTone, "TwoTone"},
    {eDspATxModeMute, "Mute"},
});

// False if the DSP refuses; nothing is filled then.
bool readChain(IDspChannelApi& channelApi, ModemChain chain, std::string& signal, std::int32_t& sweepTime,
               std::int32_t& toneFrequency)
{
    EDspATxMode mode = eDspATxModeUndefined;
    int sweep = 0;
    int tone = 0;
    if (failed(channelApi.getDspTxMode(chain, mode, sweep, tone))) {
        return false;
    }
    signal = textOf(kSignals, mode, "UNDEFINED");
    sweepTime = sweep;
    toneFrequency = tone;
    return true;
}

} // namespace

std::string TiGetDspTxMode::Response::printResponse() const
{
    return printed(*this);
}

void TiGetDspTxMode::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "OutputSignal: " << OutputSignal << ", SweepTime: " << SweepTime
         << ", ToneFrequency: " << ToneFrequency << ", CrossConnectOutputSignal: " << CrossConnectOutputSignal
         << ", CrossConnectSweepTime: " << CrossConnectSweepTime
         << ", CrossConnectToneFrequency: " << CrossConnectToneFrequency;
}

ETIResult TiGetDspTxModeImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

TiGetDspTxMode::Response TiGetDspTxModeImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.RadioChannelID; });
    Response response;
    if (m_numberOfChannels < command.RadioChannelID) {
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds"); // sic: a small d
        return response;
    }
    IDspChannelApi& channelApi =
        required(m_dspApi[command.RadioChannelID].getDspChannelApi(), command.RadioChannelID);
    if (!readChain(channelApi, ModemChain::Main, response.OutputSignal, response.SweepTime,
                   response.ToneFrequency)) {
        setResult(response, eTI_E_FAILED, "Failed to get TxMode from DSP");
        return response;
    }
    if (!readChain(channelApi, ModemChain::XpicSlave, response.CrossConnectOutputSignal,
                   response.CrossConnectSweepTime, response.CrossConnectToneFrequency)) {
        setResult(response, eTI_E_FAILED, "Failed to get CrossConnect TxMode from DSP");
    }
    return response;
}

} // namespace zyr_top_api
