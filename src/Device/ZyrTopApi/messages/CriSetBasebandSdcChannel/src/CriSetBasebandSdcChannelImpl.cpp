#include "CriSetBasebandSdcChannelImpl.h"

#include "CombinerSetter.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetBasebandSdcChannel::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr CombinerSetterTexts kTexts{
    .controllerMissing = "BadebandSdc Controller missing", // sic
    .failedLogged = "CRI.SetBasebandSdcChannel failed to set SDC Path",
    .failed = "Failed to set SDC Path",
};

} // namespace

void CriSetBasebandSdcChannel::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", isMainChannelEnabled: " << isMainChannelEnabled
         << ", isDiversityChannelEnabled: " << isDiversityChannelEnabled << "\n";
}

ETIResult CriSetBasebandSdcChannelImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
        {perChannel("IBasebandSdcController", m_controller, textAndName("Error getting interface to "))});
}

StandardResponse CriSetBasebandSdcChannelImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.channelId
             << ", command.isMainChannelEnabled=" << command.isMainChannelEnabled
             << ", command.isDiversityChannelEnabled=" << command.isDiversityChannelEnabled;
    });
    return setCombiner(
        trace, kTexts, command, m_numberOfChannels, m_controller, [&](IBasebandSdcController& controller) {
            return controller.setChannels(command.isMainChannelEnabled, command.isDiversityChannelEnabled);
        });
}

StandardResponse criSetBasebandSdcChannel(const CriSetBasebandSdcChannel::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetBasebandSdcChannelImpl(), command);
}

} // namespace zyr_top_api
