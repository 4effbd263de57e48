#include "CriGetSdcStatusImpl.h"

#include "CallSite.h"
#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "SdcPath.h"
#include "SdcStatus.h"
#include "ZyrApiHandler.h"

#include <string_view>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriGetSdcStatus::identity.traceChannel, 3, TylTraceHdrOption_Default};

// Fails at level 4, unlike other commands.
CriGetSdcStatus::Response noAnswer(std::string_view text, CallSite at = CallSite())
{
    log(trace, 4, text, at);
    return refusal<CriGetSdcStatus::Response>(eTI_E_FAILED, text);
}

} // namespace

void CriGetSdcStatus::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << "\n";
}

std::string CriGetSdcStatus::Response::printResponse() const
{
    return printed(*this);
}

void CriGetSdcStatus::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "SdcOperStatus: " << sdcOperStatus << ", SdcDadeStatus: " << sdcDadeStatus
         << ", SdcDadeDelay: " << sdcDadeDelay << ", SdcGain: " << sdcGain << ", ActualPath: " << actualPath
         << ", HwErrorSdcMain: ";
    text.raw(static_cast<unsigned char>(hwErrorSdcMain))
        << ", HwErrorSdcDiversity:"; // sic: no blank behind the colon
    text.raw(static_cast<unsigned char>(hwErrorSdcDiversity))
        << ", SdcInputPowerMain: " << sdcInputPowerMain
        << ", SdcInputPowerDiversity: " << sdcInputPowerDiversity << "\n";
}

ETIResult CriGetSdcStatusImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
        {perChannel("ISpaceDiversityCombinerController", m_controller,
                    textAndName("Could not find the Space Diversity Combiner Controller interface: "))});
}

CriGetSdcStatus::Response CriGetSdcStatusImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });
    log(trace, 5, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.channelId) {
        log(trace, 1, [&](TextWriter& text) {
            text << "command.channelId: " << command.channelId << " m_numberOfChannels "
                 << m_numberOfChannels;
        });
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
    }

    ISpaceDiversityCombinerController& controller = m_controller[command.channelId];
    const SdcStatus operStatus = controller.getSdcOperStatus();
    if (operStatus == SdcStatus::NoAnswer) {
        return noAnswer("CRI.GetSdcStatus failed to get SDC Oper Status 3");
    }
    const SdcStatus dadeStatus = controller.getSdcDadeStatus();
    if (dadeStatus == SdcStatus::NoAnswer) {
        return noAnswer("CRI.GetSdcStatus failed to get SDC DADE Status 3");
    }
    const SdcPath actualPath = controller.getSdcActualPath();
    if (actualPath == SdcPath::Invalid) {
        return noAnswer("CRI.GetSdcStatus failed to get SDC Actual Path 3");
    }

    Response response;
    controller.getSdcSignalStatus(response.hwErrorSdcMain, response.hwErrorSdcDiversity,
                                  response.sdcInputPowerMain, response.sdcInputPowerDiversity,
                                  response.sdcGain);
    response.sdcDadeDelay = controller.getSdcDadeDelay();
    response.sdcOperStatus = sdcOperStatusToString(operStatus);
    response.sdcDadeStatus = sdcDadeStatusToString(dadeStatus);
    response.actualPath = sdcPathToString(actualPath);
    log(trace, 5, [&](TextWriter& text) { response.print(text); });
    return response;
}

CriGetSdcStatus::Response criGetSdcStatus(const CriGetSdcStatus::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetSdcStatusImpl(), command);
}

} // namespace zyr_top_api
