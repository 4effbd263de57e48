#include "CriSetSdcEnableImpl.h"

#include "CombinerSetter.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetSdcEnable::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr CombinerSetterTexts kTexts{
    .controllerMissing = "Space Diversity Combiner Controller missing",
    .failedLogged = "CRI.SetSdcEnable failed to enable or disable Space Diversity Combiner",
    .failed = "Failed to enable or disable Space Diversity Combiner",
};

} // namespace

void CriSetSdcEnable::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", sdcEnable: " << sdcEnable << "\n";
}

ETIResult CriSetSdcEnableImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
                      {perChannel("ISpaceDiversityCombinerController", m_controller)});
}

StandardResponse CriSetSdcEnableImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.channelId << ", command.sdcEnable=" << command.sdcEnable;
    });
    return setCombiner(trace, kTexts, command, m_numberOfChannels, m_controller,
                       [&](ISpaceDiversityCombinerController& controller) {
                           return controller.setSdcEnable(command.sdcEnable);
                       });
}

StandardResponse criSetSdcEnable(const CriSetSdcEnable::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetSdcEnableImpl(), command);
}

} // namespace zyr_top_api
