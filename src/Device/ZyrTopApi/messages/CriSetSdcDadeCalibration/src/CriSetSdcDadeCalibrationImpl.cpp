#include "CriSetSdcDadeCalibrationImpl.h"

#include "CombinerSetter.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetSdcDadeCalibration::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr CombinerSetterTexts kTexts{
    .controllerMissing = "Space Diversity Combiner Controller missing",
    .failedLogged =
        "CRI.SetSdcDadecalibration failed to start or abort SDC Dade Calibration", // sic: the name is another
                                                                                   // one
    .failed = "Failed to start or abort SDC Dade Calibration",
};

} // namespace

void CriSetSdcDadeCalibration::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", dadeCalibration: " << dadeCalibration << "\n";
}

ETIResult CriSetSdcDadeCalibrationImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
                      {perChannel("ISpaceDiversityCombinerController", m_controller)});
}

StandardResponse CriSetSdcDadeCalibrationImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.channelId
             << ", command.dadeCalibration=" << command.dadeCalibration;
    });
    return setCombiner(trace, kTexts, command, m_numberOfChannels, m_controller,
                       [&](ISpaceDiversityCombinerController& controller) {
                           return controller.setDadeCalibration(command.dadeCalibration);
                       });
}

StandardResponse criSetSdcDadeCalibration(const CriSetSdcDadeCalibration::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetSdcDadeCalibrationImpl(), command);
}

} // namespace zyr_top_api
