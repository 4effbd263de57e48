#include "CriDisableModulationImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "Required.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriDisableModulation::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr InitialiseRules kRules{
    // sic: the text is cut short
    .secondCall = {SecondCallRule::Guard::BeforeRange, "CriDisableModulationImpl already initialize"},
    .countStored = InitialiseRules::CountStored::Last,
    .entryTellsCount = true,
};

using Response = CriDisableModulation::Response;
using bcm::types::ModemChain;

ETIResult readMode(IDspChannelApi& channelApi, EDspATxMode& mode)
{
    mode = eDspATxModeUndefined;
    int sweepTime = 0;
    int toneFrequency = 0;
    return channelApi.getDspTxMode(ModemChain::Main, mode, sweepTime, toneFrequency);
}

Response unreadable(RadioChannel channel, CallSite at = CallSite())
{
    const auto logged = [&](TextWriter& text) { text << channel.logString() << "Failed to get DSP TX mode"; };
    log(trace, 1, logged, at);
    return refusal<Response>(eTI_E_FAILED, "Unable to get DSP TX mode");
}

} // namespace

void CriDisableModulation::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID;
    if (DisableModulation.hasValue()) {
        text << ", DisableModulation: " << DisableModulation.value();
    }
    text << "\n";
}

std::string CriDisableModulation::Response::printResponse() const
{
    return printed(*this);
}

void CriDisableModulation::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RadioChannelID: " << RadioChannelID << ", DisableModulation: " << DisableModulation;
}

ETIResult CriDisableModulationImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace, kRules, numberOfChannels, m_numberOfChannels,
        {perChannel("IDspApi", m_dspApi, kSilent), perChannel("IAcmHandler", m_acmHandler, kSilent)});
}

CriDisableModulation::Response CriDisableModulationImpl::execute(const Command& command)
{
    logEnter(trace);

    if (m_numberOfChannels == 0) {
        return refusal<Response>(eTI_E_FAILED, "CriDisableModulationImpl has not been initialized");
    }
    if (m_numberOfChannels < command.RadioChannelID) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
    }
    IDspChannelApi& channelApi =
        required(m_dspApi[command.RadioChannelID].getDspChannelApi(), command.RadioChannelID);
    EDspATxMode mode = {};
    if (failed(readMode(channelApi, mode))) {
        return unreadable(command.RadioChannelID);
    }
    if (command.DisableModulation.hasValue()) {
        const bool isToneAsked = command.DisableModulation.value();
        const EDspATxMode asked = isToneAsked ? eDspATxModeOneTone : eDspATxModeNormal;
        if (mode != asked) {
            if (failed(channelApi.setDspTxMode(ModemChain::Main, asked, 0, 0))) {
                log(trace, 1, [&](TextWriter& text) {
                    text << command.RadioChannelID.logString() << "Failed to set DSP TX mode "
                         << dspATxModeToString(asked);
                });
                return refusal<Response>(eTI_E_FAILED, "Failed to set DSP TX mode");
            }
            IAcmHandler& acmHandler = m_acmHandler[command.RadioChannelID];
            isToneAsked ? acmHandler.disableModulation() : acmHandler.enableModulation();
            log(trace, 3, [&](TextWriter& text) {
                text << command.RadioChannelID.logString() << "Modulation successfully changed to "
                     << dspATxModeToString(asked);
            });
        }
    }
    if (failed(readMode(channelApi, mode))) {
        return unreadable(command.RadioChannelID);
    }
    Response response;
    response.RadioChannelID = command.RadioChannelID;
    response.DisableModulation = mode == eDspATxModeOneTone;
    return response;
}

CriDisableModulation::Response criDisableModulation(const CriDisableModulation::Command& command)
{
    return ZyrApiHandler::executeCommand(CriDisableModulationImpl(), command);
}

} // namespace zyr_top_api
