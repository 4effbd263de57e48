// One pass of the configuration: its phases in order, and those of them that are a call or two.

#include "CriSetRadioChannelNearEndImpl.h"
#include "Failure.h"
#include "Log.h"
#include "ResultLaw.h"

namespace zyr_top_api
{

// The frame and the link type change while ACM is muted and the transmitter is off; frequencies are written
// near the end, only then does the transmitter return, and ACM is enabled last.
StandardResponse CriSetRadioChannelNearEndImpl::configure(const Command& command, const Recover& recover,
                                                          Recover& recoverOut)
{
    const RadioChannel channel = normalised(command);
    bool dspNeedsReconfiguration = false;
    Failure failure;

    // A phase behind a failed one doesn't run.
    const auto plain = [&](const auto& phase) {
        failure = phase();
        return !failure.hasValue();
    };
    // A phase whose failure a recovery of the DSP may heal.
    const auto healable = [&](const auto& phase) {
        if (plain(phase)) {
            return true;
        }
        recoverOut = dspNeedsReconfiguration ? Recover::DspWithoutConfig : Recover::Dsp;
        return false;
    };
    const auto unfailing = [](const auto& phase) {
        phase();
        return true;
    };

    /*  1 */ logCall(command);
    /*  2 */ if (handleXpicMimoDisableForCtUnderReset(channel, command)) {
        return {};
    }
    const bool succeeded =
        /*  3 */ plain([&] { return validateInput(command); }) &&
        /*  4 */ plain([&] { return turnOffTransmitter(channel); }) &&
        /*  5 */ plain([&] { return recoverDspIfNeeded(command, recover, dspNeedsReconfiguration); }) &&
        /*  6 */ healable([&] { return muteAcm(channel); }) &&
        /*  7 */ healable([&] { return handleXpic(command); }) &&
        /*  8 */ unfailing([&] { setMimoLinkType(channel, command); }) &&
        /*  9 */ plain([&] { return setModulationRange(channel, command); }) &&
        /* 10 */ healable([&] { return updateRadioFrameId(command, recover); }) &&
        /* 11 */ unfailing([&] { configurePpsRole(channel, command); }) &&
        /* 12 */ plain([&] { return updateRssiThreshold(command); }) &&
        /* 13 */ unfailing([&] { m_systemPowerController[channel].setReferenceSec(command.referenceSec); }) &&
        /* 14 */ healable([&] { return setTemporaryPmaxCapability(channel); }) &&
        /* 15 */ plain([&] {
            log(s_trace, 7, "Going to call updateFrequencies", within("configure"));
            return updateFrequencies(command);
        }) &&
        /* 16 */ plain([&] { return configureMultiTrx(command); }) &&
        /* 17 */ plain([&] { return restoreTransmitter(channel); }) &&
        /* 18 */ healable([&] { return enableAcm(channel); });

    return succeeded ? StandardResponse() : StandardResponse(eTI_E_FAILED, failure.value());
}

void CriSetRadioChannelNearEndImpl::logCall(const Command& command)
{
    log(s_trace, 3, [&](TextWriter& text) {
        text << "for channel " << command.RadioChannelID << " with radioFrameId: " << command.radioFrameId
             << ", minModulation: " << convertCodeAndModulationEnumToString(command.minModulation)
             << ", maxModulation: " << convertCodeAndModulationEnumToString(command.maxModulation)
             << ", referenceSec: " << referenceSecToString(command.referenceSec);
    });
    log(s_trace, 3, [&](TextWriter& text) {
        text << "txFrequency_kHz: " << command.txFrequency_kHz
             << ", rxFrequency_kHz: " << command.rxFrequency_kHz;
        if (command.ffConfigTypePresent) {
            text << ", ffConfigType: " << command.FFConfigType;
        }
        if (!command.xpicEnable.empty()) {
            text << ", xpicEnable: " << command.xpicEnable;
        }
        if (!command.mimoEnable.empty()) {
            text << ", mimoEnable: " << command.mimoEnable;
        }
        text << ", ppsSlave: " << command.ppsSlave;
    });
}

CriSetRadioChannelNearEndImpl::Failure CriSetRadioChannelNearEndImpl::validateInput(const Command& command)
{
    const RadioChannel channel = command.RadioChannelID;
    if (channel < 1 || channel > 2) {
        return failureText("ChannelId out of bounds: ", channel);
    }
    // The strings alone decide here, whether or not they are marked as present.
    if (LinkTypeXpicMimo::stringToEnum(command.xpicEnable) != LinkType::Disable &&
        LinkTypeXpicMimo::stringToEnum(command.mimoEnable) != LinkType::Disable) {
        return failureText("Enabling XPIC and MIMO at the same time is not allowed!");
    }
    if (!isRadioAvailable(channel)) {
        return {};
    }
    if (m_radioCapability[channel].getFrequencyCapability().DuplexType >= 2) {
        return failureText("syntax error, duplex type not valid");
    }
    return {};
}

CriSetRadioChannelNearEndImpl::Failure CriSetRadioChannelNearEndImpl::muteAcm(RadioChannel channel)
{
    const EACMHResult result = m_acmHandler[channel].muteAcm();
    if (failed(result)) {
        return failureText("IAcmHandler->muteAcm() failed (EACMHResult = ", result, ")");
    }
    return {};
}

void CriSetRadioChannelNearEndImpl::setMimoLinkType(RadioChannel channel, const Command& command)
{
    const bool isCapable = m_hardwareConfigurationHandler->isMimoCapable(command.radioFrameId);
    IMimoController* const mimoController = m_mimoController.find(channel);
    if (isCapable && mimoController != nullptr) {
        mimoController->setLinkType(command.mimoParameterPresent
                                        ? LinkTypeXpicMimo::stringToEnum(command.mimoEnable)
                                        : LinkType::Disable);
    }
}

CriSetRadioChannelNearEndImpl::Failure
CriSetRadioChannelNearEndImpl::setModulationRange(RadioChannel channel, const Command& command)
{
    const EACMHResult result =
        m_acmHandler[channel].setMinMaxModulationAndCode(command.minModulation, command.maxModulation);
    if (failed(result)) {
        return failureText("IAcmHandler->SetMinMaxModulationAndCode failed (EACMHResult = ", result, ")");
    }
    return {};
}

void CriSetRadioChannelNearEndImpl::configurePpsRole(RadioChannel channel, const Command& command)
{
    nord::zyr::pps::IPpsController* const ppsController = m_ppsController.find(channel);
    if (ppsController == nullptr) {
        return;
    }
    const auto role = [&](TextWriter& text) {
        text << "Configure PPS role as " << (command.ppsSlave ? "SLAVE" : "MASTER") << " and output mode "
             << ppsOutputModeToString(command.ppsOutputMode) << " ch[" << channel << "]";
    };
    log(s_trace, 5, role, within("configure"));
    ppsController->configureRole(command.ppsSlave, command.ppsOutputMode);
}

CriSetRadioChannelNearEndImpl::Failure
CriSetRadioChannelNearEndImpl::setTemporaryPmaxCapability(RadioChannel channel)
{
    const ESPCResult result = m_systemPowerController[channel].setTemporaryPmaxCapability();
    if (failed(result)) {
        return failureText("ISystemPowerController->setTemporaryPmaxCapability failed (ESPCResult = ", result,
                           ")");
    }
    return {};
}

CriSetRadioChannelNearEndImpl::Failure CriSetRadioChannelNearEndImpl::enableAcm(RadioChannel channel)
{
    const EACMHResult result = m_acmHandler[channel].enableAcm(true);
    if (failed(result)) {
        return failureText("IAcmHandler->enableAcm(true) failed (EACMHResult = ", result, ")");
    }
    return {};
}

} // namespace zyr_top_api
