#include "TiManageRfPowerImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiManageRfPower::identity.traceChannel, 3, TylTraceHdrOption_Default};

// The option's value, or the one in force.
template <class T, class Getter>
T valueOr(const general_classes::Optional<T>& option, const Getter& inForce)
{
    return option.hasValue() ? option.value() : inForce();
}

} // namespace

std::string TiManageRfPower::Response::printResponse() const
{
    return printed(*this);
}

void TiManageRfPower::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RadioChannelID: " << RadioChannelID << ", TXRequestedStatusBarOn: " << TXRequestedStatusBarOn
         << ", TXRequestedStatus: " << txRequestedStatusToString(TXRequestedStatus)
         << ", TargetRFInputPowerBarOn: " << TargetRFInputPowerBarOn
         << ", TargetRFInputPower: " << TargetRFInputPower << ", RFOutputPowerBarOn: " << RFOutputPowerBarOn
         << ", MinRFOutputPower: " << MinRFOutputPower << ", MaxRFOutputPower: " << MaxRFOutputPower
         << ", IgnorePowerLimits: " << IgnorePowerLimits
         << ", ForceLoopMode: " << forceLoopModeToString(ForceLoopMode);
}

ETIResult TiManageRfPowerImpl::initialize(unsigned numberOfChannels)
{
    // sic: the same words for both
    constexpr MissingText kMissing = plainText("Could not find the System Power Controller interface");
    return initialise(
        trace,
        family::classGuarded(SecondCallRule::Guard::AfterRange, "TiManageRfPowerImpl already initialized"),
        numberOfChannels, m_numberOfChannels,
        {
            perChannel("ISystemPowerController", m_systemPowerController, kMissing),
            perChannel("IAtpcController", m_atpcController, kMissing),
        });
}

TiManageRfPower::Response TiManageRfPowerImpl::execute(const Command& command)
{
    logEnter(trace);
    if (m_numberOfChannels == 0) {
        return refusal<Response>(eTI_E_FAILED, "TiManageRfPowerImpl has not been initialized");
    }
    const ESPCResult overridden = overrideSettings(command);
    if (failed(overridden)) {
        // sic: the words of another command
        return failedResponse<Response>(trace,
                                        failureText("ICcdpController::setBar failed for radiochannel ",
                                                    command.RadioChannelID, " with status ", overridden));
    }
    Response response;
    response.RadioChannelID = command.RadioChannelID;
    readBack(response);
    return response;
}

ESPCResult TiManageRfPowerImpl::overrideSettings(const Command& command)
{
    ISystemPowerController& power = m_systemPowerController[command.RadioChannelID];
    IAtpcController& atpc = m_atpcController[command.RadioChannelID];
    const bool statusBarOn = valueOr(command.TXRequestedStatusBarOn, [&] { return power.getTxBarOn(); });
    const auto status = valueOr(command.TXRequestedStatus, [&] { return power.getTxRequestedStatus(); });
    const bool targetBarOn =
        valueOr(command.TargetRFInputPowerBarOn, [&] { return power.getTargetInputPowerBarOn(); });
    const std::int32_t target =
        valueOr(command.TargetRFInputPower, [&] { return atpc.getTargetInputPower(); });
    const bool outputBarOn = valueOr(command.RFOutputPowerBarOn, [&] { return power.getOutputPowerBarOn(); });
    const std::int32_t minimum = valueOr(command.MinRFOutputPower, [&] { return power.getMinOutputPower(); });
    const std::int32_t maximum = valueOr(command.MaxRFOutputPower, [&] { return power.getMaxOutputPower(); });
    const bool ignoreLimits =
        valueOr(command.IgnorePowerLimits, [&] { return power.getIgnorePowerLimits(); });
    const auto loopMode = valueOr(command.ForceLoopMode, [&] { return power.getForceLoopMode(); });
    return power.overridePowerSettings(statusBarOn, status, targetBarOn, target, outputBarOn, minimum,
                                       maximum, ignoreLimits, loopMode);
}

void TiManageRfPowerImpl::readBack(Response& response)
{
    ISystemPowerController& power = m_systemPowerController[response.RadioChannelID];
    response.TXRequestedStatusBarOn = power.getTxBarOn();
    response.TXRequestedStatus = power.getTxRequestedStatus();
    response.TargetRFInputPowerBarOn = power.getTargetInputPowerBarOn();
    response.TargetRFInputPower = m_atpcController[response.RadioChannelID].getTargetInputPower();
    response.RFOutputPowerBarOn = power.getOutputPowerBarOn();
    response.MinRFOutputPower = power.getMinOutputPower();
    response.MaxRFOutputPower = power.getMaxOutputPower();
    response.IgnorePowerLimits = power.getIgnorePowerLimits();
    response.ForceLoopMode = power.getForceLoopMode();
}

} // namespace zyr_top_api
