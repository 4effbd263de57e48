// What the collaborators of the channel say, in the order in which they are asked, and what the response
// takes of it. Nothing logs here: all records of the command name its other source.

#include "CriGetRadioChannelStatusImpl.h"
#include "Failure.h"
#include "IDspChannelApi.h"
#include "IDspControlApi.h"
#include "IDspStatusApi.h"
#include "ModulationAndCoding.h"
#include "Negated.h"
#include "Required.h"
#include "ResultLaw.h"
#include "Zyr.h"

namespace zyr_top_api
{

namespace
{

constexpr int kMimo4x4Mode = 9;

// Answer of a DSP that can't tell whether its PPF has locked.
constexpr ETIResult kNotSupported = eTI_W_ALREADY_INITIALIZED;

bool isLinkUp(IDspApi& dspApi)
{
    IDspStatusApi* const statusApi = dspApi.getDspStatusApi();
    return statusApi != nullptr && statusApi->isLinkUp(); // a missing interface fails at a later reading
}

// To append to an empty text is half the work of an assignment. Once for all, as it isn't small.
[[gnu::noinline]] void fill(std::string& emptyText, std::string_view content)
{
    emptyText.append(content);
}

} // namespace

bool CriGetRadioChannelStatusImpl::Readings::failsWith(std::string_view text)
{
    failure = text;
    return false;
}

bool CriGetRadioChannelStatusImpl::Readings::failsWith(std::string_view text, ETIResult result)
{
    return failsWith(failureText(text, result));
}

bool CriGetRadioChannelStatusImpl::read(const Command& command, Readings& readings)
{
    const std::uint32_t channel = command.RadioChannelID;
    readings.txStatus = txPowerActualStatusToString(m_outputPowerController[channel].getTxStatus());
    readings.isLinkUp = isLinkUp(m_dspApi[channel]);
    if (!readModulations(channel, readings) || !readRssi(channel, readings) ||
        !readErrorBlocks(command, readings) || !readXpic(channel, readings)) {
        return false;
    }
    readMimo(channel, readings);
    readBasebandSdc(channel, readings);
    if (!readPpfLock(channel, readings)) {
        return false;
    }
    readFrequencies(channel, readings);
    return readHopLengthLatency(channel, readings);
}

bool CriGetRadioChannelStatusImpl::readModulations(std::uint32_t channel, Readings& readings)
{
    ModulationAndCoding rx = ModulationAndCoding::UNDEFINED;
    ModulationAndCoding tx = ModulationAndCoding::UNDEFINED;
    const ETIResult result = m_acmHandler[channel].getLowestModulationAndCode(rx, tx, true);
    if (failed(result)) {
        return readings.failsWith(
            "CRI.GetRadioChannelStatus failed to get lowest rx and tx modulationAndCode ", result);
    }
    readings.rxModulation = convertCodeAndModulationEnumToString(rx);
    readings.txModulation = convertCodeAndModulationEnumToString(tx);
    return true;
}

bool CriGetRadioChannelStatusImpl::readRssi(std::uint32_t channel, Readings& readings)
{
    const ETIResult result = m_rssiHandler[channel].getRssi(readings.rssi);
    if (failed(result)) {
        return readings.failsWith("CRI.GetRadioChannelStatus failed to get rssi value ", result);
    }
    return true;
}

bool CriGetRadioChannelStatusImpl::readXpic(std::uint32_t channel, Readings& readings)
{
    ICcdpController* const ccdpController = m_ccdpController.find(channel);
    if (ccdpController == nullptr) {
        return true;
    }
    readings.xpicIsStarted = ccdpController->isStarted();
    if (!readings.xpicIsStarted) {
        return true;
    }
    const ETIResult xpiResult = ccdpController->getXpi(readings.xpi);
    if (failed(xpiResult)) {
        return readings.failsWith("CRI.GetRadioChannelStatus failed to get XPI from CCDP controller ",
                                  xpiResult);
    }
    const ETIResult stateResult = ccdpController->getState(readings.xpicStatus);
    if (failed(stateResult)) {
        return readings.failsWith("CRI.GetRadioChannelStatus failed to get state from CCDP controller ",
                                  stateResult);
    }
    return true;
}

void CriGetRadioChannelStatusImpl::readMimo(std::uint32_t channel, Readings& readings)
{
    IMimoController* const mimoController = m_mimoController.find(channel);
    if (mimoController == nullptr || !mimoController->isStarted()) {
        return;
    }
    int mode = 0;
    required(m_dspApi[channel].getDspControlApi(), channel).getMimoMode(mode);
    readings.isMimo4x4 = mode == kMimo4x4Mode;
    readings.mimoIsStarted = mimoController->isStarted(); // the second answer is the one that is reported
    readings.eta = mimoController->getEta().valueOr(0);
    readings.mimoStatus = mimoLockStatusToString(mimoController->getStatus());
    if (readings.isMimo4x4) {
        readMimo4x4(*mimoController, readings);
    }
}

void CriGetRadioChannelStatusImpl::readMimo4x4(IMimoController& mimoController, Readings& readings)
{
    readings.xpi = mimoController.getXpi().valueOr(0);
    readings.xpicStatus =
        mimoLockStatusToString(mimoController.getXpicStatus().valueOr(MimoLockStatus::Unlocked));
}

bool CriGetRadioChannelStatusImpl::readPpfLock(std::uint32_t channel, Readings& readings)
{
    IDspChannelApi* const channelApi = m_dspApi[channel].getDspChannelApi();
    if (channelApi == nullptr) {
        return readings.failsWith("CRI.GetRadioChannelStatus failed to get DSP API interface");
    }
    bool locked = false;
    const ETIResult result = channelApi->getPpfLockStatus(locked);
    if (failed(result)) {
        return readings.failsWith("CRI.GetRadioChannelStatus failed to get PPF locked status from DSP");
    }
    if (result != kNotSupported) {
        readings.ppfLocked = locked ? PpfLockedStatus::locked : PpfLockedStatus::unlocked;
    }
    return true;
}

void CriGetRadioChannelStatusImpl::readFrequencies(std::uint32_t channel, Readings& readings)
{
    if (IFrequencyController* const frequencyController = m_frequencyController.find(channel)) {
        readings.txFrequency = frequencyController->getTxFrequency();
        readings.rxFrequency = frequencyController->getRxFrequency();
    }
}

bool CriGetRadioChannelStatusImpl::readHopLengthLatency(std::uint32_t channel, Readings& readings)
{
    nord::zyr::pps::IPpsController* const ppsController = m_ppsController.find(channel);
    if (ppsController != nullptr && failed(ppsController->getHopLengthLatency(readings.hopLengthLatency))) {
        return readings.failsWith("CRI.GetRadioChannelStatus failed to get hopLengthLatency from PPS");
    }
    return true;
}

void CriGetRadioChannelStatusImpl::fillCommon(std::uint32_t channel, const Readings& readings,
                                              Response& response)
{
    fill(response.TXActualStatus, readings.txStatus);
    fill(response.RadioChannelStatus, readings.isLinkUp ? "Up" : "Down");
    fill(response.ActualTxModulation, readings.txModulation);
    fill(response.ActualModulation, readings.txModulation);
    fill(response.ActualRxModulation, readings.rxModulation);
    response.ActualRFInputPower = readings.rssi;
    response.ReportedRFOutputPower = m_systemPowerController[channel].getReportedOutputPower();
    response.ActualSNIR = negated(readings.snir);
    response.ErroredBlocks = readings.blocks.erroredBlocks;
    response.BackgroundBlocks = readings.blocks.backgroundBlocks;
    response.ErrorBytes = readings.blocks.errorBytes;
    response.TotalBytes = readings.blocks.totalBytes;
    response.TxFrequency = readings.txFrequency;
    response.RxFrequency = readings.rxFrequency;
    response.XpicIsStarted = readings.xpicIsStarted;
    response.ClockStatus = 1;
    response.ZyrState = Zyr::getInitState();
    response.IsMimo4x4 = readings.isMimo4x4;
    response.MimoIsStarted = readings.mimoIsStarted;
    response.ActualEta = readings.eta;
    fill(response.MimoStatus, readings.mimoStatus);
    response.BasebandSdcIsStarted = readings.basebandSdcIsStarted;
    response.HopLengthLatency = readings.hopLengthLatency;
    response.PpfLocked = readings.ppfLocked;
}

void CriGetRadioChannelStatusImpl::fillOptional(std::uint32_t channel, const Readings& readings,
                                                Response& response)
{
    if (response.IsMimo4x4 || response.XpicIsStarted) {
        response.ActualXpi = readings.xpi;
        response.XpicStatus = readings.xpicStatus;
    }
    if (response.XpicIsStarted && response.BasebandSdcIsStarted) {
        response.ActualXpiMainBasebandSdc = readings.basebandSdc.xpiMain;
        response.ActualXpiDiversityBasebandSdc = readings.basebandSdc.xpiDiversity;
    }
    if (response.BasebandSdcIsStarted) {
        response.ActualGainBasebandSdc = readings.basebandSdc.gain;
        response.ActualSnirMainBasebandSdc = negated(readings.basebandSdc.snirMain);
        response.ActualSnirDiversityBasebandSdc = negated(readings.basebandSdc.snirDiversity);
        response.ActualDadeStatusBasebandSdc = basebandSdcDadeStatusToString(readings.dadeStatus);
        response.ActualDadeDelayBasebandSdc = readings.dadeDelay;
        response.BasebandSdcCalibrationDataMain = static_cast<std::uint16_t>(readings.calibrationData);
        response.BasebandSdcCalibrationDataDiversity =
            static_cast<std::uint16_t>(readings.calibrationData >> 16U);
    }
    if (zyr::IZyrRleHandler* const rleHandler = m_rleHandler.find(channel)) {
        response.RleStatus = rleHandler->getRleStatus();
    }
}

} // namespace zyr_top_api
