#include "CriSetRadioChannelNearEndImpl.h"

#include "CModuleManager.h"
#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

#include <array>

namespace zyr_top_api
{

namespace
{

constexpr std::uint32_t kClosingPhaseGroup = 5;
constexpr unsigned kMaximumFailures = 3;

void printAddress(TextWriter& text, const ether_addr& address)
{
    std::array<char, sizeof "ff:ff:ff:ff:ff:ff"> digits{};
    text << ether_ntoa_r(&address, digits.data());
}

} // namespace

constinit TylTrace CriSetRadioChannelNearEndImpl::s_trace{CriSetRadioChannelNearEnd::identity.traceChannel, 3,
                                                          TylTraceHdrOption_Default};

CriSetRadioChannelNearEndImpl::~CriSetRadioChannelNearEndImpl() = default;

std::string CriSetRadioChannelNearEnd::Command::toString() const
{
    return printed(*this);
}

void CriSetRadioChannelNearEnd::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID << ", radioFrameId: " << radioFrameId
         << ", minModulation: " << convertCodeAndModulationEnumToString(minModulation)
         << ", maxModulation: " << convertCodeAndModulationEnumToString(maxModulation)
         << ", referenceSec: " << referenceSecToString(referenceSec)
         << ", txFrequency_kHz: " << txFrequency_kHz << ", rxFrequency_kHz: " << rxFrequency_kHz
         << ", xpicParameterPresent: " << xpicParameterPresent << ", xpicEnable: " << xpicEnable
         << ", mimoParameterPresent: " << mimoParameterPresent << ", mimoEnable: " << mimoEnable
         << ", ffConfigTypePresent: " << ffConfigTypePresent << ", FFConfigType: " << FFConfigType
         << ", splitMode: " << splitMode << ", iduMacAddress: ";
    printAddress(text, iduMacAddress);
    text << ", oduMacAddress: ";
    printAddress(text, oduMacAddress);
    // sic: no blank behind the colon of ppsOutputMode
    text << ", ppsSlave: " << ppsSlave << ", ppsOutputMode:" << ppsOutputModeToString(ppsOutputMode);
    if (rauMultiTrxConfig.ifSwitchMode.hasValue()) {
        text << ", rauMultiTrxConfig.ifSwitchMode: " << rauMultiTrxConfig.ifSwitchMode.value();
    }
    text << "\n";
}

ETIResult CriSetRadioChannelNearEndImpl::initialize(unsigned numberOfChannels)
{
    const ETIResult result = initialise(
        s_trace, family::kPlain, numberOfChannels, m_numberOfChannels,
        {
            nodeWide("IHardwareConfigurationHandler", m_hardwareConfigurationHandler,
                     plainText("Could not find the Hardware Configuration Handler interface")),
            perChannel("ICapabilityHandler", m_capabilityHandler, textAndName("Error getting interface: ")),
            perChannel("ISystemPowerController", m_systemPowerController,
                       plainText("Could not find the System Power Controller interface")),
            perChannel("IOutputPowerController", m_outputPowerController, textAndName("Could not find : ")),
            optional(perChannel("ICcdpController", m_ccdpController, kSilent)),
            optional(perChannel("IMimoController", m_mimoController, kSilent)),
            perChannel("IAcmHandler", m_acmHandler, plainText("Could not find the AdMod Handler interface")),
            perChannel("IRssiHandler", m_rssiHandler, plainText("Could not find the RSSI Handler interface")),
            perChannel("IFrequencyController", m_frequencyController,
                       plainText("Could not find the Frequency Controller interface")),
            optional(perChannel("ITxIQImbalanceHandler", m_txIqImbalanceHandler,
                                plainText("Could not find the Tx IQImbalance Handler interface", 4))),
            perChannel("IDspApi", m_dspApi, plainText("Could not find the DSP API interface")),
            perChannel("IRadioCapability", m_radioCapability, textAndName("Error getting interface: ")),
            optional(perChannel("IRadio", m_radio, textAndName("Did not find interface: ", 4))),
            optional(withoutUnderscore(
                perChannel("IPpsController", m_ppsController, textAndName("Interface not available: ", 4)))),
            optional(perChannel("IRauHandler", m_rauHandler, textAndName("Did not find interface: ", 4))),
            optional(nodeWide("RecoveryController", m_recoveryController,
                              plainText("RecoveryController Interface not available", 4))),
        });
    if (result == eTI_S_OK) {
        log(s_trace, 6, "Done");
    }
    return result;
}

StandardResponse CriSetRadioChannelNearEndImpl::execute(const Command& command)
{
    logEnter(s_trace, [&](TextWriter& text) {
        text << "msg:";
        command.print(text);
    });
    if (m_numberOfChannels < command.RadioChannelID) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    const RadioChannel channel = normalised(command);
    if (!m_systemPowerController[channel].isConfigurationBypassed()) {
        StandardResponse response = configureWithRecovery(command);
        if (!isFaultless(response)) {
            return response;
        }
    }
    return runClosingPhases(channel);
}

// A pass that fails without asking for a recovery keeps what an earlier pass asked for, and so counts as
// recoverable behind that one.
StandardResponse CriSetRadioChannelNearEndImpl::configureWithRecovery(const Command& command)
{
    Recover recover = Recover::None;
    Recover recoverOut = Recover::None;
    unsigned failures = 0;
    while (true) {
        StandardResponse response = configure(command, recover, recoverOut);
        if (isFaultless(response)) {
            return response;
        }
        if (recoverOut == Recover::None) {
            log(s_trace, 1, response.faultString, within("execute"));
            log(s_trace, 1, "Recovery cannot solve this failure, return", within("execute"));
            return response;
        }
        recover = recoverOut;
        ++failures;
        log(s_trace, 2, response.faultString, within("execute"));
        if (failures == kMaximumFailures) {
            log(s_trace, 2, "Configuration failed 3 times, restart needed", within("execute"));
            return response;
        }
        log(s_trace, 3, "Configuration failed, retry with DSP recovery", within("execute"));
    }
}

StandardResponse CriSetRadioChannelNearEndImpl::runClosingPhases(RadioChannel channel)
{
    const std::uint32_t result = CModuleManager_RunGroup(kClosingPhaseGroup, channel);
    if (!failed(result)) {
        return {};
    }
    return failedResponse(s_trace, failureText("At least one of the phases failed (", result, ")"),
                          eTI_E_FAILED, within("execute"));
}

RadioChannel CriSetRadioChannelNearEndImpl::normalised(const Command& command)
{
    return command.RadioChannelID == 2 ? RadioChannel(2) : RadioChannel(1);
}

StandardResponse criSetRadioChannelNearEnd(const CriSetRadioChannelNearEnd::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetRadioChannelNearEndImpl(), command);
}

} // namespace zyr_top_api
