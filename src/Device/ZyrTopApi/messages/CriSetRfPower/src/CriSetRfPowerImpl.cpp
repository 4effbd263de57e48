#include "CriSetRfPowerImpl.h"

#include "Failure.h"
#include "IDspChannelApi.h"
#include "IDspControlApi.h"
#include "Initialise.h"
#include "Log.h"
#include "PrintIfPresent.h"
#include "Required.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

#include <array>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetRfPower::identity.traceChannel, 3, TylTraceHdrOption_Default};

// What these select inside the power controller isn't known here.
constexpr std::array kPowerSettingsOptions{0, 1};
constexpr int kAdminStateOption = 0;

} // namespace

std::string CriSetRfPower::Command::toString() const
{
    return printed(*this);
}

void CriSetRfPower::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID
         << ", txRequestedStatus: " << txRequestedStatusToString(txRequestedStatus)
         << ", targetRfInputPower: " << targetRfInputPower
         << ", targetRfInputPowerFarEnd: " << targetRfInputPowerFarEnd
         << ", minRfOutputPower: " << minRfOutputPower << ", maxRfOutputPower: " << maxRfOutputPower
         << ", availableMaxPowerCutback: " << availableMaxPowerCutback;
    printIfPresent(text, ", tapsEnable: ", tapsEnable);
    printIfPresent(text, ", hrlbEnabled: ", hrlbEnabled);
    printIfPresent(text, ", atpcFallbackEnable: ", atpcFallbackEnable);
    printIfPresent(text, ", atpcFallbackOutputPower: ", atpcFallbackOutputPower);
    printIfPresent(text, ", atpcFallbackTimer: ", atpcFallbackTimer);
    text << "\n";
}

ETIResult CriSetRfPowerImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace,
        family::classGuarded(SecondCallRule::Guard::AfterRange, "CriSetRfPowerImpl already initialized"),
        numberOfChannels, m_numberOfChannels,
        {
            perChannel("ISystemPowerController", m_systemPowerController,
                       plainText("Could not find the System Power Controller interface")),
            perChannel("IOutputPowerCalculator", m_outputPowerCalculator,
                       plainText("Could not find the Output Power Calculator interface")),
            perChannel("IDspApi", m_dspApi, plainText("Could not find the DSP API interface")),
            perChannel("ITapsController", m_tapsController),
            perChannel("IAcmHandler", m_acmHandler),
        });
}

StandardResponse CriSetRfPowerImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.RadioChannelID
             << ", command.txRequestedStatus=" << txRequestedStatusToString(command.txRequestedStatus)
             << ", command.targetRfInputPower=" << command.targetRfInputPower
             << ", command.targetRfInputPowerFarEnd=" << command.targetRfInputPowerFarEnd
             << ", command.minRfOutputPower=" << command.minRfOutputPower
             << ", command.maxRfOutputPower=" << command.maxRfOutputPower
             << ", command.availableMaxPowerCutback=" << command.availableMaxPowerCutback;
    });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.RadioChannelID) {
        return {eTI_E_FAILED, "command.channelId > m_numberOfChannels"};
    }
    if (!required(m_dspApi[command.RadioChannelID].getDspChannelApi(), command.RadioChannelID)
             .isConfigured()) {
        return answerUnconfigured(command);
    }
    return setPower(command);
}

StandardResponse CriSetRfPowerImpl::answerUnconfigured(const Command& command)
{
    if (command.txRequestedStatus == TxRequestedStatus::Off) {
        const auto ignored = [&](TextWriter& text) {
            text << command.RadioChannelID.logString()
                 << "SetRfPower with txRequestedStatus Off is ignored, due to that DSP is not configured";
        };
        log(trace, 3, ignored, within("execute"));
        return {};
    }
    const auto refused = [&](TextWriter& text) {
        text << command.RadioChannelID.logString() << "DSP needs to be configured before SetRfPower";
    };
    log(trace, 1, refused, within("execute"));
    // Asked whether or not the trace shows them: what the DSP sees doesn't depend on trace levels.
    IDspApi& dspApi = m_dspApi[command.RadioChannelID];
    const bool isAccessible = required(dspApi.getDspControlApi(), command.RadioChannelID).isAccessible();
    // sic: two blanks
    log(trace, 4, isAccessible ? "DSP is accessible" : "DSP is  not accessible", within("execute"));
    const EDspChannelState state =
        required(dspApi.getDspChannelApi(), command.RadioChannelID).getChannelState();
    const auto told = [&](TextWriter& text) {
        text << "DSP channel state: " << dspChannelStateToString(state);
    };
    log(trace, 4, told, within("execute"));
    return {eTI_E_OPERATION_NOT_ALLOWED, "DSP needs to be configured before SetRfPower"};
}

// ACM is muted around exactly the changes of power; a failure among them leaves it muted.
StandardResponse CriSetRfPowerImpl::setPower(const Command& command)
{
    ISystemPowerController& powerController = m_systemPowerController[command.RadioChannelID];
    IAcmHandler& acmHandler = m_acmHandler[command.RadioChannelID];

    const ESPCResult cutback =
        m_outputPowerCalculator[command.RadioChannelID].setPowerCutBack(command.availableMaxPowerCutback);
    if (failed(cutback)) {
        return failedResponse(trace, "Failed to set max power cutback",
                              failureText("SetPowerCutBack failed(ESPCResult = ", cutback, ")"), eTI_E_FAILED,
                              within("execute"));
    }
    const EACMHResult muted = acmHandler.muteAcm();
    if (failed(muted)) {
        return failedResponse(trace, failureText("IAcmHandler->muteAcm() failed (EACMHResult = ", muted, ")"),
                              eTI_E_FAILED, within("execute"));
    }
    const ESPCResult notified = notifyFallback(command);
    if (failed(notified)) {
        return failedResponse(trace, "Failed to notify SPC about changes in ATPC fallback settings",
                              failureText("notifyRequestedPowerSettings failed(ESPCResult = ", notified, ")"),
                              eTI_E_FAILED, within("execute"));
    }
    const ESPCResult configured = powerController.configurePowerSettings(
        command.txRequestedStatus, command.targetRfInputPowerFarEnd, command.minRfOutputPower,
        command.maxRfOutputPower, kPowerSettingsOptions[0], kPowerSettingsOptions[1]);
    if (failed(configured)) {
        return failedResponse(trace, "Failed to notify SPC about changes in power settings",
                              failureText("configurePowerSettings failed(ESPCResult = ", configured, ")"),
                              eTI_E_FAILED, within("execute"));
    }
    const ESPCResult adminState =
        powerController.setAdminRequestedTxPowerState(command.txRequestedStatus, kAdminStateOption);
    if (failed(adminState)) {
        return failedResponse(
            trace, "Failed to set Tx Admin Power State",
            failureText("setAdminRequestedTxPowerState failed(ESPCResult = ", adminState, ")"), eTI_E_FAILED,
            within("execute"));
    }
    const EACMHResult restored = acmHandler.restoreAcm();
    if (failed(restored)) {
        return failedResponse(trace,
                              failureText("IAcmHandler->restoreAcm() failed (EACMHResult = ", restored, ")"),
                              eTI_E_FAILED, within("execute"));
    }
    return setOptions(command, adminState);
}

ESPCResult CriSetRfPowerImpl::notifyFallback(const Command& command)
{
    if (!command.atpcFallbackEnable.hasValue() || !command.atpcFallbackOutputPower.hasValue() ||
        !command.atpcFallbackTimer.hasValue()) {
        return eSPC_S_OK;
    }
    const bool enable =
        command.minRfOutputPower != command.maxRfOutputPower && command.atpcFallbackEnable.value();
    return m_systemPowerController[command.RadioChannelID].notifyRequestedPowerSettings(
        enable, command.atpcFallbackOutputPower.value(), command.atpcFallbackTimer.value());
}

StandardResponse CriSetRfPowerImpl::setOptions(const Command& command, ESPCResult adminStateResult)
{
    ITapsController* const tapsController = m_tapsController.find(command.RadioChannelID);
    if (command.tapsEnable.hasValue()) {
        if (tapsController == nullptr) {
            return {};
        }
        if (failed(tapsController->setTapsEnable(command.tapsEnable.value()))) {
            // sic: the result of the transmitter's state, which succeeded, not that of TAPS
            return failedResponse(trace,
                                  failureText("Failed to set TAPS enable for channel ",
                                              command.RadioChannelID, " (ESPCResult = ", adminStateResult,
                                              ")"),
                                  eTI_E_FAILED, within("execute"));
        }
    }
    if (command.hrlbEnabled.hasValue() && tapsController != nullptr) {
        tapsController->setHrlbEnabled(command.hrlbEnabled.value());
    }
    return {};
}

StandardResponse criSetRfPower(const CriSetRfPower::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetRfPowerImpl(), command);
}

} // namespace zyr_top_api
