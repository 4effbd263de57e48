#include "CriSetRauPowerModeImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetRauPowerMode::identity.traceChannel, 3, TylTraceHdrOption_Default};

// Why a mode is none of its transceiver.
void printDefect(RadioChannel channel, RauPowerMode mode, TextWriter& text)
{
    text << channel.logString();
    switch (mode.trxId) {
    case kTrxUndefined:
        text << "rauPowerMode.trxId still undefined";
        return;
    case kTrxFirst:
    case kTrxSecond:
    case kTrxBoth:
        text << "Power mode 0x";
        text.hex(mode.powerMode) << " is not valid for trxId 0x";
        text.hex(mode.trxId);
        return;
    default:
        text << "rauPowerMode.trxId not valid: 0x";
        text.hex(mode.trxId);
    }
}

} // namespace

void CriSetRauPowerMode::Command::print(TextWriter& text) const
{
    // sic: the line ends before the comma, and no colon behind "trxId"
    text << "RadioChannelID: " << RadioChannelID << "\n, rauPowerMode.trxId ";
    text.hex(rauPowerMode.trxId) << "\n, rauPowerMode.powerMode: ";
    text.hex(rauPowerMode.powerMode) << "\n";
}

ETIResult CriSetRauPowerModeImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace,
        family::classGuarded(SecondCallRule::Guard::BeforeRange, "CriSetRauPowerModeImpl already initialized",
                             InitialiseRules::CountStored::First),
        numberOfChannels, m_numberOfChannels,
        {perChannel("IRauHandler", m_rauHandler, plainText("Could not find the Rau Handler interface"))});
}

StandardResponse CriSetRauPowerModeImpl::execute(const Command& command)
{
    const RauPowerMode mode = command.rauPowerMode;
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.RadioChannelID << ", (uint8_t)trxId=";
        text.raw(mode.trxId) << ", (uint8_t)pm=";
        text.raw(mode.powerMode);
    });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.RadioChannelID) {
        return {eTI_E_FAILED, "command.channelId > m_numberOfChannels"};
    }
    if (!isOfItsTransceiver(mode)) {
        log(trace, 7, [&](TextWriter& text) { printDefect(command.RadioChannelID, mode, text); });
    }
    const ERAUHResult set = m_rauHandler[command.RadioChannelID].setPowerMode(mode);
    if (failed(set)) {
        return failedResponse(trace, "Failed to set rau power mode",
                              failureText("SetRauPowerMode failed: ERAUHResult = ", rauhResultToString(set)));
    }
    log(trace, 5, [&](TextWriter& text) {
        text << "CriSetRauPowerMode successfully executed: set transceiver 0x";
        text.hex(mode.trxId) << " to powerMode 0x";
        text.hex(mode.powerMode);
    });
    return {};
}

StandardResponse criSetRauPowerMode(const CriSetRauPowerMode::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetRauPowerModeImpl(), command);
}

} // namespace zyr_top_api
