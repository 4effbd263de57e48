#include "TiManageTXIFOutputPowerImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "PresentFields.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiManageTXIFOutputPower::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

std::string TiManageTXIFOutputPower::Response::printResponse() const
{
    return printed(*this);
}

void TiManageTXIFOutputPower::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RadioChannelID: " << radioChannelId << ", TXIFBAROn: " << txIfBarOn
         << ", TXIFOutputPower: " << txIfOutputPower << ", DACValue: " << dacValue;
}

ETIResult TiManageTXIFOutputPowerImpl::initialize(unsigned numberOfChannels)
{
    // sic: a full stop in the name, and always channel 1
    return initialise(
        trace, UncountedRules{.entryTellsCount = true}, numberOfChannels,
        {nodeWide("IOutputPowerHandler.1", m_outputPowerHandler, textAndName("Could not find "))});
}

TiManageTXIFOutputPower::Response TiManageTXIFOutputPowerImpl::execute(const Command& command)
{
    logEnter(trace);
    log(trace, 4, [&](TextWriter& text) {
        text << "Request: "; // sic: the blank stays when no field is there
        PresentFields(text)
            .add("RadioChannelID: ", command.radioChannelId)
            .add("TXIFBAROn: ", command.txIfBarOn)
            .add("TXIFOutputPower: ", command.txIfOutputPower);
    });
    Response response = manage(command);
    log(trace, 4, [&](TextWriter& text) {
        text << "Response: ";
        response.print(text);
    });
    return response;
}

TiManageTXIFOutputPower::Response TiManageTXIFOutputPowerImpl::manage(const Command& command)
{
    Response response;
    if (command.radioChannelId.hasValue() && command.radioChannelId.value() != response.radioChannelId) {
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
        return response;
    }
    // Whether these are taken shows in what is read back.
    if (command.txIfBarOn.hasValue()) {
        m_outputPowerHandler->setTxIfBarOn(command.txIfBarOn.value());
    }
    if (command.txIfOutputPower.hasValue()) {
        m_outputPowerHandler->setTxIfOutputPower(command.txIfOutputPower.value());
    }
    response.txIfBarOn = m_outputPowerHandler->isTxIfBarOn();
    m_outputPowerHandler->getTxIfOutputPower(response.txIfOutputPower);
    m_outputPowerHandler->getDacValue(response.dacValue);
    return response;
}

} // namespace zyr_top_api
