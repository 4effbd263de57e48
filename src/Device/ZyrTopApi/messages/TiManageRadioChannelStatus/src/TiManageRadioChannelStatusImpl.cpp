#include "TiManageRadioChannelStatusImpl.h"

#include "FailureText.h"
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

TiManageRadioChannelStatus::Response failure(const std::string& text)
{
    log(trace, 1, text);
    TiManageRadioChannelStatus::Response response;
    setResult(response, eTI_E_FAILED, text);
    return response;
}

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
        trace, family::kPlain, numberOfChannels, &m_numberOfChannels,
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
    const std::uint32_t channel = command.RadioChannelID;
    Response response;
    if (channel > m_numberOfChannels) {
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
        return response;
    }
    const ETxPowerActualStatus txStatus = m_outputPowerController[channel].getTxStatus();
    IDspApi& dspApi = m_dspApi[channel];
    IDspStatusApi* const linkApi = dspApi.getDspStatusApi();
    const bool isLinkUp = linkApi != nullptr && linkApi->isLinkUp(); // a missing interface fails further down

    IAcmHandler& acmHandler = m_acmHandler[channel];
    const ModulationAndCoding currentTx = acmHandler.getCurrentTxModulationAndCode();
    const ModulationAndCoding currentRx = acmHandler.getCurrentRxModulationAndCode();
    ModulationAndCoding lowestRx = ModulationAndCoding::UNDEFINED;
    ModulationAndCoding lowestTx = ModulationAndCoding::UNDEFINED;
    const ETIResult lowestResult =
        acmHandler.getLowestModulationAndCode(lowestRx, lowestTx, command.ResetLowestValues);
    if (failed(lowestResult)) {
        return failure(failureText(
            "TI.ManageRadioChannelStatus failed to get lowest Rx and Tx modulationAndCodes ", lowestResult));
    }
    IRssiHandler& rssiHandler = m_rssiHandler[channel];
    int rssi = -99;
    const ETIResult rssiResult = rssiHandler.getRssi(rssi);
    if (failed(rssiResult)) {
        return failure(failureText("TI.ManageRadioChannelStatus failed to get rssi value ", rssiResult));
    }
    IDspStatusApi* const statusApi = dspApi.getDspStatusApi();
    if (statusApi == nullptr) {
        return failure("TI.ManageRadioChannelStatus failed to get DSP API interface");
    }
    DspErrorBlocks blocks;
    if (failed(statusApi->getErrorBlocks(blocks, false))) {
        return failure("TI.ManageRadioChannelStatus failed to get errored blocks from DSP"); // sic: no code
    }
    response.EbSinceLastRxLock = statusApi->getEbSinceLastRxLock();
    response.RxLockedCounter = statusApi->getRxLockedCounter();
    if (IFrequencyController* const frequencyController = m_frequencyController.find(channel)) {
        response.TxFrequency = frequencyController->getTxFrequency();
        response.RxFrequency = frequencyController->getRxFrequency();
    }

    response.TXActualStatus = txPowerActualStatusToString(txStatus);
    response.RadioChannelStatus = isLinkUp ? "Up" : "Down";
    response.ActualTxModulation = convertCodeAndModulationEnumToString(currentTx);
    response.ActualRxModulation = convertCodeAndModulationEnumToString(currentRx);
    response.LowestTxModulation = convertCodeAndModulationEnumToString(lowestTx);
    response.LowestRxModulation = convertCodeAndModulationEnumToString(lowestRx);
    response.ActualRFInputPower = rssi;
    response.LowestRFInputPower = rssiHandler.getRssiMin(command.ResetLowestValues);
    response.ReportedRFOutputPower = m_systemPowerController[channel].getReportedOutputPower();
    response.ActualSNIR = negated(statusApi->getSnir());
    response.LowestSNIR = negated(statusApi->getLowestSnir(command.ResetLowestValues));
    response.ErroredBlocks = blocks.erroredBlocks;
    return response;
}

} // namespace zyr_top_api
