#include "CriSetSdcPathControlImpl.h"

#include "CombinerSetter.h"
#include "Initialise.h"
#include "Log.h"
#include "SdcPath.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetSdcPathControl::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr CombinerSetterTexts kTexts{
    .controllerMissing = "Space Diversity Combiner Controller missing",
    .failedLogged = "CRI.SetSdcPathControl failed to set SDC Path",
    .failed = "Failed to set SDC Path",
};

} // namespace

void CriSetSdcPathControl::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", sdcPath: " << sdcPath << "\n";
}

ETIResult CriSetSdcPathControlImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
                      {perChannel("ISpaceDiversityCombinerController", m_controller,
                                  textAndName("Error getting interface to "))});
}

StandardResponse CriSetSdcPathControlImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.channelId << ", command.sdcPath=" << command.sdcPath;
    });
    return setCombiner(trace, kTexts, command, m_numberOfChannels, m_controller,
                       [&](ISpaceDiversityCombinerController& controller) {
                           return controller.setSdcPath(sdcPathStringToEnum(command.sdcPath));
                       });
}

StandardResponse criSetSdcPathControl(const CriSetSdcPathControl::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetSdcPathControlImpl(), command);
}

} // namespace zyr_top_api
