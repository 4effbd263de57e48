#include "CriGetRauPowerModeImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriGetRauPowerMode::identity.traceChannel, 3, TylTraceHdrOption_Default};

// A mode with anything that isn't the transceiver's is no mode at all.
RauPowerMode kept(RauPowerMode mode)
{
    // An undefined transceiver has no mode that could be set, but any can be read of it.
    const bool isKept = mode.trxId == kTrxUndefined ? isOfItsTransceiver({kTrxBoth, mode.powerMode})
                                                    : isOfItsTransceiver(mode);
    return isKept ? mode : RauPowerMode{mode.trxId, 0};
}

} // namespace

void CriGetRauPowerMode::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID << "\n";
}

std::string CriGetRauPowerMode::Response::printResponse() const
{
    return printed(*this);
}

void CriGetRauPowerMode::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    // sic: the mode as a raw byte, unlike the transceiver
    text << "RadioChannelID: " << RadioChannelID << "\n, rauPowerMode.trxId "
         << std::uint32_t{rauPowerMode.trxId} << "\n, rauPowerMode.powerMode: ";
    text.raw(rauPowerMode.powerMode) << "\n";
}

ETIResult CriGetRauPowerModeImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace,
        family::classGuarded(SecondCallRule::Guard::BeforeRange, "CriGetRauPowerModeImpl already initialized",
                             InitialiseRules::CountStored::First),
        numberOfChannels, m_numberOfChannels,
        {perChannel("IRauHandler", m_rauHandler, plainText("Could not find the Rau Handler interface"))});
}

CriGetRauPowerMode::Response CriGetRauPowerModeImpl::execute(const Command& command)
{
    log(trace, 3, [&](TextWriter& text) { command.print(text); });
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.RadioChannelID; });
    log(trace, 6, [&](TextWriter& text) { text << "command.trxId=" << std::uint32_t{command.trxId}; });

    if (m_numberOfChannels < command.RadioChannelID) {
        return refusal<Response>(eTI_E_PARAMETER_INVALID, "RadioChannelID > m_numberOfChannels");
    }
    IRauHandler* const rauHandler = m_rauHandler.find(command.RadioChannelID);
    if (rauHandler == nullptr) {
        return failedResponse<Response>(trace, "CRI.GetRauPowerMode, rau handler not available");
    }
    unsigned char mode = 0;
    const ERAUHResult read = rauHandler->getPowerMode(command.trxId, mode);
    if (failed(read)) {
        return failedResponse<Response>(
            trace, failureText("GetRauPowerMode failed: ERAUHResult = ", rauhResultToString(read)));
    }
    Response response;
    response.rauPowerMode = kept({command.trxId, mode});
    log(trace, 5, [&](TextWriter& text) {
        text << "CriGetRauPowerMode successfully executed: rau at channelId=" << command.RadioChannelID
             << " trxId=" << std::uint32_t{command.trxId} << " rauPowerMode=";
        text.raw(response.rauPowerMode.powerMode);
    });
    return response;
}

CriGetRauPowerMode::Response criGetRauPowerMode(const CriGetRauPowerMode::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetRauPowerModeImpl(), command);
}

} // namespace zyr_top_api
