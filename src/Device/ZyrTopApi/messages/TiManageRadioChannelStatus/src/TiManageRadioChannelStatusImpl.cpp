#include "TiManageRadioChannelStatusImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ModulationAndCoding.h"
#include "Negated.h"
#include "ResultLaw.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiManageRadioChannelStatus::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

std::string TiManageRadioChannelStatus::Response::printResponse() const
{
    return printed(*this);
}

void TiManageRadioChannelStatus::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "TXActualStatus: " << TXActualStatus << ", RadioChannelStatus: " << RadioChannelStatus
         << ", ActualTxModulation: " << ActualTxModulation
         << ", ActualRxModulation:" << ActualRxModulation // sic: no blank behind the colon
         << ", LowestTxModulation: " << LowestTxModulation << ", LowestRxModulation: " << LowestRxModulation
         << ", ActualRFInputPower: " << ActualRFInputPower << ", LowestRFInputPower: " << LowestRFInputPower
         << ", ReportedRFOutputPower: " << ReportedRFOutputPower << ", ActualSNIR: " << ActualSNIR
         << ", LowestSNIR: " << LowestSNIR << ", ErroredBlocks: " << ErroredBlocks
         << ", EbSinceLastRxLock: " << EbSinceLastRxLock << ", RxLockedCounter: " << RxLockedCounter
         << ", TxFrequency: " << TxFrequency << ", RxFrequency: " << RxFrequency;
}

std::string TiManageRadioChannelStatus::getCommandDescription()
{
    return "This is a TI version of the CRI.GetRadioChannelStatus";
}

ETIResult TiManageRadioChannelStatusImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace, family::kPlain, numberOfChannels, m_numberOfChannels,
        {
            perChannel("ISystemPowerController", m_systemPowerController,
                       textAndName("Could not find the System Power Controller interface: ")),
            perChannel("IOutputPowerController", m_outputPowerController, textAndName("Could not find : ")),
            perChannel("IAcmHandler", m_acmHandler, plainText("Could not find the Acm Handler interface")),
            perChannel("IFrequencyController", m_frequencyController,
                       plainText("Could not find the Frequency Controller interface")),
            perChannel("IRssiHandler", m_rssiHandler, plainText("Could not find the RSSI Handler interface")),
            perChannel("IDspApi", m_dspApi, plainText("Could not find the DSP API interface")),
        });
}

TiManageRadioChannelStatus::Response TiManageRadioChannelStatusImpl::execute(const Command& command)
{
    Response response;
    if (command.RadioChannelID > m_numberOfChannels) {
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
        return response;
    }
    Readings readings;
    const Failure failure = read(command, readings);
    if (failure.hasValue()) {
        fail(response, trace, failure.value());
        return response;
    }
    fill(command, readings, response);
    return response;
}

TiManageRadioChannelStatusImpl::Failure TiManageRadioChannelStatusImpl::read(const Command& command,
                                                                             Readings& readings)
{
    const std::uint32_t channel = command.RadioChannelID;
    IDspApi& dspApi = m_dspApi[channel];
    IAcmHandler& acmHandler = m_acmHandler[channel];

    readings.txStatus = m_outputPowerController[channel].getTxStatus();
    IDspStatusApi* const linkApi = dspApi.getDspStatusApi();
    readings.isLinkUp = linkApi != nullptr && linkApi->isLinkUp(); // a missing interface fails further down
    readings.currentTx = acmHandler.getCurrentTxModulationAndCode();
    readings.currentRx = acmHandler.getCurrentRxModulationAndCode();
    const ETIResult lowest = acmHandler.getLowestModulationAndCode(readings.lowestRx, readings.lowestTx,
                                                                   command.ResetLowestValues);
    if (failed(lowest)) {
        return failureText("TI.ManageRadioChannelStatus failed to get lowest Rx and Tx modulationAndCodes ",
                           lowest);
    }
    const ETIResult rssi = m_rssiHandler[channel].getRssi(readings.rssi);
    if (failed(rssi)) {
        return failureText("TI.ManageRadioChannelStatus failed to get rssi value ", rssi);
    }
    readings.statusApi = dspApi.getDspStatusApi();
    if (readings.statusApi == nullptr) {
        return failureText("TI.ManageRadioChannelStatus failed to get DSP API interface");
    }
    if (failed(readings.statusApi->getErrorBlocks(readings.blocks, false))) {
        // sic: no code
        return failureText("TI.ManageRadioChannelStatus failed to get errored blocks from DSP");
    }
    readings.ebSinceLastRxLock = readings.statusApi->getEbSinceLastRxLock();
    readings.rxLockedCounter = readings.statusApi->getRxLockedCounter();
    if (IFrequencyController* const frequencyController = m_frequencyController.find(channel)) {
        readings.txFrequency = frequencyController->getTxFrequency();
        readings.rxFrequency = frequencyController->getRxFrequency();
    }
    return {};
}

// The lowest values are read, and reset, only when nothing can fail any more.
void TiManageRadioChannelStatusImpl::fill(const Command& command, const Readings& readings,
                                          Response& response)
{
    const std::uint32_t channel = command.RadioChannelID;
    response.TXActualStatus = txPowerActualStatusToString(readings.txStatus);
    response.RadioChannelStatus = readings.isLinkUp ? "Up" : "Down";
    response.ActualTxModulation = convertCodeAndModulationEnumToString(readings.currentTx);
    response.ActualRxModulation = convertCodeAndModulationEnumToString(readings.currentRx);
    response.LowestTxModulation = convertCodeAndModulationEnumToString(readings.lowestTx);
    response.LowestRxModulation = convertCodeAndModulationEnumToString(readings.lowestRx);
    response.ActualRFInputPower = readings.rssi;
    response.LowestRFInputPower = m_rssiHandler[channel].getRssiMin(command.ResetLowestValues);
    response.ReportedRFOutputPower = m_systemPowerController[channel].getReportedOutputPower();
    response.ActualSNIR = negated(readings.statusApi->getSnir());
    response.LowestSNIR = negated(readings.statusApi->getLowestSnir(command.ResetLowestValues));
    response.ErroredBlocks = readings.blocks.erroredBlocks;
    response.EbSinceLastRxLock = readings.ebSinceLastRxLock;
    response.RxLockedCounter = readings.rxLockedCounter;
    response.TxFrequency = readings.txFrequency;
    response.RxFrequency = readings.rxFrequency;
}

} // namespace zyr_top_api
