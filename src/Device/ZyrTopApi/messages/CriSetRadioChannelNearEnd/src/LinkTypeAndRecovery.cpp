// The link type follows what the frame can carry, and a change of frame format can need a recovery of the
// DSP.

#include "CriSetRadioChannelNearEndImpl.h"
#include "Failure.h"
#include "IDspControlApi.h"
#include "Log.h"
#include "Required.h"
#include "ResultLaw.h"

#include <algorithm>
#include <array>

namespace zyr_top_api
{

namespace
{

// Each is required only if the frame is of the type that its row names.
struct RequiredType
{
    FFConfigType requested;
    FFConfigType frame;
    FFConfigType required;
    FFConfigType requiredLongHaul;
};

constexpr auto kRequiredTypes = [] {
    using enum FFConfigType;
    return std::to_array<RequiredType>({
        {Std, Std, Std, LHStd},
        {Xpic, Xpic, Xpic, LHXpic},
        {Mimo, Mimo, Mimo, Unknown},
        {Xpic2, Xpic, Xpic2, LHXpic2},
        {Mimo2, Mimo, Mimo2, Unknown},
        {SisoCA, Std, SisoCA, SisoCA},
        {XpicCA, Xpic, XpicCA, XpicCA},
        {Mrc, Mrc, Mrc, Mrc},
        {Mrc2, Mrc, Mrc2, Mrc2},
        {Mrcx, Mrcx, Mrcx, Mrcx},
    });
}();

FFConfigType requiredType(FFConfigType requested, FFConfigType frame, bool isLongHaul)
{
    const auto* const row = std::ranges::find(kRequiredTypes, requested, &RequiredType::requested);
    if (row == kRequiredTypes.end() || row->frame != frame) {
        return FFConfigType::Unknown;
    }
    return isLongHaul ? row->requiredLongHaul : row->required;
}

// What isn't a type of its own in a command: unknown texts, and the long-haul types, which follow from the
// channel.
bool isRefused(FFConfigType type)
{
    using enum FFConfigType;
    return type == Unknown || type == Other || type == LHStd || type == LHXpic || type == LHXpic2;
}

} // namespace

bool CriSetRadioChannelNearEndImpl::handleXpicMimoDisableForCtUnderReset(const RadioChannel& channel,
                                                                         const Command& command)
{
    const LinkType xpic = LinkTypeXpicMimo::stringToEnum(command.xpicEnable);
    const LinkType mimo = LinkTypeXpicMimo::stringToEnum(command.mimoEnable);
    if (command.txFrequency_kHz != 0 || command.radioFrameId != 0 || xpic != LinkType::Disable ||
        mimo != LinkType::Disable || !command.xpicParameterPresent || !command.mimoParameterPresent) {
        return false;
    }
    ICcdpController* const ccdpController = m_ccdpController.find(channel);
    if (ccdpController != nullptr && ccdpController->isStarted()) {
        ccdpController->stop();
    }
    IMimoController* const mimoController = m_mimoController.find(channel);
    if (mimoController != nullptr && mimoController->isStarted()) {
        mimoController->stop();
    }
    return true;
}

// A frame that can carry cross-polar operation always gets a start, even with the link type "Disable", and
// one that can't always gets a stop.
CriSetRadioChannelNearEndImpl::Failure CriSetRadioChannelNearEndImpl::handleXpic(const Command& command)
{
    bool capable = false;
    const EHCHResult hchResult = m_hardwareConfigurationHandler->isXpicCapable(command.radioFrameId, capable);
    if (failed(hchResult)) {
        return failureText("HardwareConfigurationHandler isXpicCapable failed(hchResultXpic = ", hchResult,
                           ")");
    }
    ICcdpController* const ccdpController = m_ccdpController.find(command.RadioChannelID);
    if (ccdpController == nullptr) {
        return {};
    }
    // sic: the code's name is misspelt in both texts
    if (capable) {
        const LinkType linkType = command.xpicParameterPresent
                                      ? LinkTypeXpicMimo::stringToEnum(command.xpicEnable)
                                      : LinkType::Disable;
        const ETIResult result = ccdpController->start(linkType);
        if (failed(result)) {
            return failureText("CCDP start failed(ECCDPCREsult = ", result, ") for link type ",
                               LinkTypeXpicMimo::enumToString(linkType));
        }
        return {};
    }
    const ETIResult result = ccdpController->stop();
    if (failed(result)) {
        return failureText("CCDP stop failed(ECCDPCREsult = ", result, ")");
    }
    return {};
}

CriSetRadioChannelNearEndImpl::Failure
CriSetRadioChannelNearEndImpl::recoverDspIfNeeded(const Command& command, const Recover& recover,
                                                  bool& dspNeedsReconfiguration)
{
    Recover needed = Recover::None;
    bool dueToCarrierAggregation = false;
    if (command.ffConfigTypePresent) {
        Failure failure = checkFrameFormat(command, needed, dueToCarrierAggregation, dspNeedsReconfiguration);
        if (failure.hasValue()) {
            return failure;
        }
    }
    if (recover == Recover::None && needed == Recover::None) {
        return {};
    }
    RecoveryController* const recoveryController = m_recoveryController.find();
    if (recoveryController == nullptr) {
        return {};
    }
    const Recover mode = std::max(recover, needed); // the greater is the stronger
    log(s_trace, 4, [&](TextWriter& text) {
        text << "DSP recovery triggered! Mode: " << recoverToString(mode)
             << (dueToCarrierAggregation ? " (due to carrier aggregation)" : "");
    });
    if (failed(recoveryController->startDspRecovery(mode))) {
        return failureText("CRI.SetRadioChannelNearEnd failed to reconfigure the DSP");
    }
    return {};
}

CriSetRadioChannelNearEndImpl::Failure
CriSetRadioChannelNearEndImpl::checkFrameFormat(const Command& command, Recover& needed,
                                                bool& dueToCarrierAggregation, bool& dspNeedsReconfiguration)
{
    const ConfigType type = ffConfigTypeStringToEnum(command.FFConfigType);
    if (isRefused(type)) {
        return failureText("CRI.SetRadioChannelNearEnd invalid FF config type: ", command.FFConfigType);
    }
    const RadioChannel channel = normalised(command);
    IDspControlApi& dspControl = required(m_dspApi[channel].getDspControlApi(), channel);
    if (failed(dspControl.getRequiredRecovery(type, needed, dueToCarrierAggregation))) {
        return failureText("CRI.SetRadioChannelNearEnd failed to check which kind of DSP Recovery is needed");
    }
    std::string error;
    if (failed(checkFfAndCopyDcFileIfNeeded(channel, command.radioFrameId, type, error,
                                            dspNeedsReconfiguration))) {
        return failureText("CRI.SetRadioChannelNearEnd ", error);
    }
    return {};
}

ETIResult CriSetRadioChannelNearEndImpl::checkFfAndCopyDcFileIfNeeded(RadioChannel channel,
                                                                      unsigned radioFrameId,
                                                                      ConfigType requested,
                                                                      std::string& error,
                                                                      bool& dspNeedsReconfiguration)
{
    ICapabilityHandler* const capabilityHandler = m_capabilityHandler.find(channel);
    if (capabilityHandler == nullptr) {
        error = "could not check if LongHaul, CapHandler NULL interface";
        return eTI_E_FAILED;
    }
    const bool longHaul = capabilityHandler->isLonghaul();
    ConfigType frameType = ConfigType::Unknown;
    m_hardwareConfigurationHandler->getConfigType(channel, radioFrameId, frameType);
    log(s_trace, 7, [&](TextWriter& text) {
        // sic: no blank before frameId
        text << "CH:" << channel << "frameId=" << radioFrameId
             << " aggregation type: " << ffConfigTypeToString(requested);
    });
    log(s_trace, 7, [&](TextWriter& text) {
        text << "LH:" << longHaul << " getConfigType returns: " << ffConfigTypeToString(frameType);
    });
    const ConfigType neededType = requiredType(requested, frameType, longHaul);
    log(s_trace, 7, [&](TextWriter& text) {
        text << "getRequiredFFConfigType returns: " << ffConfigTypeToString(neededType);
    });
    IDspControlApi& dspControl = required(m_dspApi[channel].getDspControlApi(), channel);
    if (failed(dspControl.checkDspReconfiguration(neededType, dspNeedsReconfiguration))) {
        error = "failed to check if the DSP needs to be reconfigured";
        return eTI_E_FAILED;
    }
    if (dspNeedsReconfiguration) {
        log(s_trace, 4, [&](TextWriter& text) {
            text << "DSP need to be reconfigured since frame format type changed to "
                 << ffConfigTypeToString(neededType) << " for FFID " << radioFrameId;
        });
        log(s_trace, 4, [&](TextWriter& text) { text << "Dsp Recovery: " << dspNeedsReconfiguration; });
    }
    return eTI_S_OK;
}

} // namespace zyr_top_api
