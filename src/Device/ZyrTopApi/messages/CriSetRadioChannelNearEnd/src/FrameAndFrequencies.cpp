// The radio frame, the RSSI threshold, the frequencies and the radio unit's IF switch.

#include "CriSetRadioChannelNearEndImpl.h"
#include "Failure.h"
#include "Log.h"
#include "ResultLaw.h"
#include "Zyr.h"

namespace zyr_top_api
{

namespace
{

// What these select inside the collaborators isn't known here.
constexpr int kRadioFrameOption = 1;
constexpr int kFrequencyOption = 1;

constexpr unsigned kFrameUpdateModeInRecovery = 1;
constexpr RadioChannel kMrc2SecondChannel{2};
constexpr std::uint32_t kFixedDuplexDistance = 1;

bool isOnNode(RadioChannel channel)
{
    return channel == 1 || channel == 2;
}

std::string outOfBoundsText(RadioChannel channel)
{
    return failureText("Index out of bounds: ", channel, " max:2");
}

} // namespace

CriSetRadioChannelNearEndImpl::Failure
CriSetRadioChannelNearEndImpl::updateRadioFrameId(const Command& command, const Recover& recover)
{
    IHardwareConfigurationHandler& handler = *m_hardwareConfigurationHandler;
    unsigned savedMode = 0;
    if (recover == Recover::Dsp) {
        handler.getFrameUpdateMode(savedMode);
        handler.setFrameUpdateMode(kFrameUpdateModeInRecovery);
    }
    // The mode stays switched when a frame write fails: so required, no guard here.
    const EHCHResult result =
        handler.setRadioFrameId(normalised(command), command.radioFrameId, kRadioFrameOption);
    if (failed(result)) {
        return failureText("IHardwareConfigurationHandler->setRadioFrameId failed (EHCHResult = ", result,
                           ")");
    }
    if (isSecondChannelOfMrc2(command)) {
        const EHCHResult secondResult =
            handler.setRadioFrameId(kMrc2SecondChannel, command.radioFrameId, kRadioFrameOption);
        if (failed(secondResult)) {
            return failureText(
                "IHardwareConfigurationHandler->setRadioFrameId failed on CH2 (MRC2)(EHCHResult = ",
                secondResult, ")");
        }
    }
    if (recover == Recover::Dsp) {
        handler.setFrameUpdateMode(savedMode);
    }
    return {};
}

bool CriSetRadioChannelNearEndImpl::isSecondChannelOfMrc2(const Command& command)
{
    return command.RadioChannelID == 1 && command.ffConfigTypePresent &&
           !m_hardwareConfigurationHandler->isChannelInUse(kMrc2SecondChannel) &&
           !Zyr::isWarmRestartInProgress() &&
           ffConfigTypeStringToEnum(command.FFConfigType) == ConfigType::Mrc2;
}

CriSetRadioChannelNearEndImpl::Failure
CriSetRadioChannelNearEndImpl::updateRssiThreshold(const Command& command)
{
    unsigned phyMode = 0;
    const EACMHResult acmResult =
        m_acmHandler[command.RadioChannelID].getPhyMode(command.minModulation, phyMode);
    if (failed(acmResult)) {
        return failureText("IAcmHandler->GetPhyMode failed for minModulationAndCode = ",
                           convertCodeAndModulationEnumToString(command.minModulation),
                           " (EACMHResult = ", acmResult, ")");
    }
    IRssiHandler& rssiHandler = m_rssiHandler[command.RadioChannelID];
    int threshold = 0;
    const ERSSIResult calculated = rssiHandler.calculateRssiThreshold(phyMode, threshold);
    if (failed(calculated)) {
        return failureText("IRssiHandler->calculateRssiThreshold failed(ERSSIResult = ", calculated, ")");
    }
    const ERSSIResult set = rssiHandler.setRssiThreshold(threshold);
    if (failed(set)) {
        return failureText("IRssiHandler->SetRssiThreshold failed (ERSSIResult = ", set, ")");
    }
    return {};
}

// Transmit comes first, the listeners next, receive last.
CriSetRadioChannelNearEndImpl::Failure
CriSetRadioChannelNearEndImpl::updateFrequencies(const Command& command)
{
    const RadioChannel channel = command.RadioChannelID;
    if (!isOnNode(channel)) {
        // sic: no failure, unlike in configureMultiTrx
        log(s_trace, 1, [&](TextWriter& text) { text << outOfBoundsText(channel); });
        return {};
    }
    if (!isRadioAvailable(channel)) {
        log(s_trace, 4, "Skip updating frequencies since RAU is not available");
        return {};
    }
    log(s_trace, 7, "Going to call m_frequencyController[channelIndex]->setTxFrequency");
    IFrequencyController& frequencyController = m_frequencyController[channel];
    const EFCResult tx = frequencyController.setTxFrequency(command.txFrequency_kHz, kFrequencyOption);
    if (failed(tx)) {
        return failureText("IFrequencyController->setTxFrequency failed (EFCResult = ", tx, ")");
    }
    if (ITxIQImbalanceHandler* const iqHandler = m_txIqImbalanceHandler.find(channel)) {
        const EFHResult result = iqHandler->OnTxFrequencyChanged(command.txFrequency_kHz);
        if (failed(result)) {
            return failureText("ITxIQImbalanceHandler->OnTxFrequencyChanged failed (EFHResult = ", result,
                               ")");
        }
    }
    const ESPCResult power = m_systemPowerController[channel].onTxFrequencyChanged(command.txFrequency_kHz);
    if (failed(power)) {
        // sic: names the IQ handler, though the power controller failed
        return failureText("ITxIQImbalanceHandler->OnTxFrequencyChanged failed (ESPCResult = ", power, ")");
    }
    const EFCResult rx = frequencyController.setRxFrequency(rxFrequency(command), kFrequencyOption);
    if (failed(rx)) {
        return failureText("IFrequencyController->setRxFrequency failed (EFCResult = ", rx, ")");
    }
    return {};
}

// A radio with a fixed duplex distance receives where its transmit frequency puts it, in 32-bit arithmetic.
std::uint32_t CriSetRadioChannelNearEndImpl::rxFrequency(const Command& command)
{
    const FrequencyCapability capability = m_radioCapability[command.RadioChannelID].getFrequencyCapability();
    if (capability.DuplexType != kFixedDuplexDistance) {
        return command.rxFrequency_kHz;
    }
    return capability.MaxRXFrequency - capability.MaxTXFrequency + command.txFrequency_kHz;
}

CriSetRadioChannelNearEndImpl::Failure
CriSetRadioChannelNearEndImpl::configureMultiTrx(const Command& command)
{
    const RadioChannel channel = command.RadioChannelID;
    if (!isOnNode(channel)) {
        std::string text = outOfBoundsText(channel);
        log(s_trace, 1, text);
        return text;
    }
    IRauHandler* const rauHandler = m_rauHandler.find(channel);
    if (rauHandler == nullptr) {
        log(s_trace, 4, [&](TextWriter& text) {
            text << "Did not find interface: " << IRauHandler::interfaceName(channel);
        });
        return {};
    }
    const auto& ifSwitchMode = command.rauMultiTrxConfig.ifSwitchMode;
    if (!ifSwitchMode.hasValue()) {
        log(s_trace, 5, "RAU has nothing to configure for MultiTrx: return OK");
        return {};
    }
    // The radio unit counts channels from 0.
    const ERAUHResult result = rauHandler->setTxIfSwitch2T2R(ifSwitchMode.value(), channel - 1);
    if (failed(result)) {
        return failureText("rauhandler->setTxIfSwitch2T2R failed (ERAUHResult = ", rauhResultToString(result),
                           ")");
    }
    return {};
}

} // namespace zyr_top_api
