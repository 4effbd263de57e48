#include "TiSetDspTxModeImpl.h"

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

constinit TylTrace trace{TiSetDspTxMode::identity.traceChannel, 3, TylTraceHdrOption_Default};

// The signals that a test may ask for. The read has another word for the normal one.
constexpr auto kSignals = std::to_array<EnumTextRow<EDspATxMode>>({
    {eDspATxModeNormal, "Normal"},
    {eDspATxModeOneTone, "OneTone"},
    {eDspATxModeTwoTone, "TwoTone"},
    {eDspATxModeMute, "Mute"},
});

} // namespace

std::string TiSetDspTxMode::Response::printResponse() const
{
    return printed(*this);
}

void TiSetDspTxMode::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "OutputSignal: " << OutputSignal << ", SweepTime: " << SweepTime
         << ", ToneFrequency: " << ToneFrequency;
}

ETIResult TiSetDspTxModeImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

TiSetDspTxMode::Response TiSetDspTxModeImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command=TiSetDspTxMode::Command: RadioChannelID: " << command.RadioChannelID
             << ", OutputSignal: " << command.OutputSignal << ", SweepTime: " << command.SweepTime
             << ", ToneFrequency: " << command.ToneFrequency;
    });
    if (m_numberOfChannels < command.RadioChannelID) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds"); // sic: a small d
    }
    const EDspATxMode mode = valueOf(kSignals, command.OutputSignal, eDspATxModeUndefined);
    if (mode == eDspATxModeUndefined) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "OutputSignal is undefined");
    }
    IDspChannelApi& channelApi =
        required(m_dspApi[command.RadioChannelID].getDspChannelApi(), command.RadioChannelID);
    if (failed(channelApi.setDspTxMode(bcm::types::ModemChain::Main, mode, command.SweepTime,
                                       command.ToneFrequency))) {
        return refusal<Response>(eTI_E_FAILED, "Failed to set TxMode to DSP");
    }
    Response response;
    response.OutputSignal = command.OutputSignal;
    response.SweepTime = command.SweepTime;
    response.ToneFrequency = command.ToneFrequency;
    return response;
}

} // namespace zyr_top_api
