#include "CriSetBasebandSdcDadeParamsImpl.h"

#include "CombinerSetter.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetBasebandSdcDadeParams::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr CombinerSetterTexts kTexts{
    .controllerMissing = "BasebandSdc Controller missing",
    .failedLogged =
        "CRI.SetBasebandSdcChannel failed to set Data Calibration", // sic: the name is another one
    .failed = "Failed to set Data Calibration",
};

} // namespace

void CriSetBasebandSdcDadeParams::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", mainDataCalibration: " << mainDataCalibration
         << ", diversityDataCalibration: " << diversityDataCalibration << "\n";
}

ETIResult CriSetBasebandSdcDadeParamsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
        {perChannel("IBasebandSdcController", m_controller, textAndName("Error getting interface to "))});
}

StandardResponse CriSetBasebandSdcDadeParamsImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.channelId
             << ", command.mainDataCalibration=" << command.mainDataCalibration
             << ", command.diversityDataCalibration=" << command.diversityDataCalibration;
    });
    return setCombiner(
        trace, kTexts, command, m_numberOfChannels, m_controller, [&](IBasebandSdcController& controller) {
            return controller.setDadeParams(command.mainDataCalibration, command.diversityDataCalibration);
        });
}

StandardResponse criSetBasebandSdcDadeParams(const CriSetBasebandSdcDadeParams::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetBasebandSdcDadeParamsImpl(), command);
}

} // namespace zyr_top_api
