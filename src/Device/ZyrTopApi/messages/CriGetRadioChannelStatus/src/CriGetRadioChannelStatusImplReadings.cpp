// What the collaborators of the channel say, in the order in which they are asked. Nothing logs here: all
// records of the command name its other source.

#include "CriGetRadioChannelStatusImpl.h"
#include "Failure.h"
#include "IDspChannelApi.h"
#include "IDspControlApi.h"
#include "IDspStatusApi.h"
#include "ModulationAndCoding.h"
#include "Required.h"
#include "ResultLaw.h"

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

} // namespace

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
        return readings.failsWith(failureText(
            "CRI.GetRadioChannelStatus failed to get lowest rx and tx modulationAndCode ", result));
    }
    readings.rxModulation = convertCodeAndModulationEnumToString(rx);
    readings.txModulation = convertCodeAndModulationEnumToString(tx);
    return true;
}

bool CriGetRadioChannelStatusImpl::readRssi(std::uint32_t channel, Readings& readings)
{
    const ETIResult result = m_rssiHandler[channel].getRssi(readings.rssi);
    if (failed(result)) {
        return readings.failsWith(failureText("CRI.GetRadioChannelStatus failed to get rssi value ", result));
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
        return readings.failsWith(
            failureText("CRI.GetRadioChannelStatus failed to get XPI from CCDP controller ", xpiResult));
    }
    const ETIResult stateResult = ccdpController->getState(readings.xpicStatus);
    if (failed(stateResult)) {
        return readings.failsWith(
            failureText("CRI.GetRadioChannelStatus failed to get state from CCDP controller ", stateResult));
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
        return readings.failsWith(failureText("CRI.GetRadioChannelStatus failed to get DSP API interface"));
    }
    bool locked = false;
    const ETIResult result = channelApi->getPpfLockStatus(locked);
    if (failed(result)) {
        return readings.failsWith(
            failureText("CRI.GetRadioChannelStatus failed to get PPF locked status from DSP"));
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
        return readings.failsWith(
            failureText("CRI.GetRadioChannelStatus failed to get hopLengthLatency from PPS"));
    }
    return true;
}

} // namespace zyr_top_api
