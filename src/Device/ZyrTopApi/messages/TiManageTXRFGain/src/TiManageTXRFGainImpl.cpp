#include "TiManageTXRFGainImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "PresentFields.h"
#include "ResultLaw.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiManageTXRFGain::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

std::string TiManageTXRFGain::Response::printResponse() const
{
    return printed(*this);
}

void TiManageTXRFGain::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RadioChannelID: " << radioChannelId << ", BarOn: " << barOn << ", Tx RF Gain: " << txRfGain
         << ", Reduced gain Amplifier1: " << reducedGainAmplifier1
         << ", Reduced gain Amplifier2: " << reducedGainAmplifier2
         << ", Reduced gain Amplifier3: " << reducedGainAmplifier3
         << ", Reduced gain Amplifier4: " << reducedGainAmplifier4
         << ", Reduced gain Amplifier5: " << reducedGainAmplifier5
         << ", Reduced gain Amplifier6: " << reducedGainAmplifier6;
}

ETIResult TiManageTXRFGainImpl::initialize(unsigned numberOfChannels)
{
    // sic: a full stop in the name, and always channel 1
    return initialise(
        trace, UncountedRules{.entryTellsCount = true}, numberOfChannels,
        {nodeWide("IOutputPowerHandler.1", m_outputPowerHandler, textAndName("Could not find "))});
}

TiManageTXRFGain::Response TiManageTXRFGainImpl::execute(const Command& command)
{
    logEnter(trace);
    log(trace, 4, [&](TextWriter& text) {
        text << "Request: "; // sic: the blank stays when no field is there
        PresentFields(text)
            .add("RadioChannelID: ", command.radioChannelId)
            .add("BarOn: ", command.barOn)
            .add("Tx RF Gain: ", command.txRfGain);
    });
    Response response = manage(command);
    log(trace, 4, [&](TextWriter& text) {
        text << "Response: ";
        response.print(text);
    });
    return response;
}

TiManageTXRFGain::Response TiManageTXRFGainImpl::manage(const Command& command)
{
    Response response;
    if (command.radioChannelId.hasValue() && command.radioChannelId.value() != response.radioChannelId) {
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
        return response;
    }
    if (command.barOn.hasValue()) {
        m_outputPowerHandler->setBarOn(command.barOn.value());
    }
    if (command.txRfGain.hasValue()) {
        if (failed(m_outputPowerHandler->setTxRfGain(command.txRfGain.value()))) {
            setResult(response, eTI_E_INVALID_ARGUMENT,
                      "TI.ManageTXRFGain, unable to set requested gain."); // sic: a full stop
            return response;
        }
        response.txRfGain = command.txRfGain.value();
    } else {
        m_outputPowerHandler->getTxRfGain(response.txRfGain);
    }
    response.barOn = m_outputPowerHandler->isBarOn();
    m_outputPowerHandler->getReducedGain(1, response.reducedGainAmplifier1);
    m_outputPowerHandler->getReducedGain(2, response.reducedGainAmplifier2);
    m_outputPowerHandler->getReducedGain(3, response.reducedGainAmplifier3);
    m_outputPowerHandler->getReducedGain(4, response.reducedGainAmplifier4);
    m_outputPowerHandler->getReducedGain(5, response.reducedGainAmplifier5);
    m_outputPowerHandler->getReducedGain(6, response.reducedGainAmplifier6);
    return response;
}

} // namespace zyr_top_api
