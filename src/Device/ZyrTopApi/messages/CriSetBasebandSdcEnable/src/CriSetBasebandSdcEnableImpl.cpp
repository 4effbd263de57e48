#include "CriSetBasebandSdcEnableImpl.h"

#include "CombinerSetter.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

#include <string_view>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetBasebandSdcEnable::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr std::string_view kControllerMissing = "BasebandSdc Controller missing";
constexpr CombinerSetterTexts kStartWithCalibration{
    .controllerMissing = kControllerMissing,
    .failedLogged =
        "CRI.SetBasebandSdcEnable failed to set Baseband SDC Start with isCalibrationRequired = TRUE",
    .failed = "Failed to set SDC Baseband SDC Start",
};
constexpr CombinerSetterTexts kStart{
    .controllerMissing = kControllerMissing,
    .failedLogged =
        "CRI.SetBasebandSdcEnable failed to set Baseband SDC Start with isCalibrationRequired = FALSE",
    .failed = "Failed to set SDC Baseband SDC Start",
};
constexpr CombinerSetterTexts kStop{
    .controllerMissing = kControllerMissing,
    .failedLogged = "CRI.SetBasebandSdcEnable failed to set Baseband SDC Stop",
    .failed = "Failed to set SDC Baseband SDC Stop",
};

constexpr const CombinerSetterTexts& textsOf(const CriSetBasebandSdcEnable::Command& command)
{
    if (!command.enabled) {
        return kStop;
    }
    return command.isCalibrationRequired ? kStartWithCalibration : kStart;
}

ETIResult start(IBasebandSdcController& controller, const CriSetBasebandSdcEnable::Command& command)
{
    const auto call = [&](TextWriter& text) {
        text << "command.channelId: " << command.channelId
             << " calling basebandSdcController->start with isCalibrationRequired = "
             << (command.isCalibrationRequired ? "TRUE" : "FALSE");
    };
    log(trace, 7, call, within("execute"));
    return controller.start(command.isCalibrationRequired);
}

ETIResult stop(IBasebandSdcController& controller, const CriSetBasebandSdcEnable::Command& command)
{
    const auto call = [&](TextWriter& text) {
        text << "command.channelId: " << command.channelId << " calling basebandSdcController->stop";
    };
    log(trace, 7, call, within("execute"));
    return controller.stop();
}

} // namespace

void CriSetBasebandSdcEnable::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", enabled: " << enabled
         << ", isCalibrationRequired: " << isCalibrationRequired << "\n";
}

ETIResult CriSetBasebandSdcEnableImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
        {perChannel("IBasebandSdcController", m_controller, textAndName("Error getting interface to "))});
}

StandardResponse CriSetBasebandSdcEnableImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.channelId << ", command.enabled=" << command.enabled
             << ", command.isCalibrationRequired=" << command.isCalibrationRequired;
    });
    return setCombiner(trace, textsOf(command), command, m_numberOfChannels, m_controller,
                       [&](IBasebandSdcController& controller) {
                           return command.enabled ? start(controller, command) : stop(controller, command);
                       });
}

StandardResponse criSetBasebandSdcEnable(const CriSetBasebandSdcEnable::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetBasebandSdcEnableImpl(), command);
}

} // namespace zyr_top_api
