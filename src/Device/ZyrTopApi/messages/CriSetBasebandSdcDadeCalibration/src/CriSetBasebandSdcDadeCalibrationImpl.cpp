#include "CriSetBasebandSdcDadeCalibrationImpl.h"

#include "CombinerSetter.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetBasebandSdcDadeCalibration::identity.traceChannel, 3,
                         TylTraceHdrOption_Default};

constexpr CombinerSetterTexts kTexts{
    .controllerMissing = "BasebandSdc Controller missing",
    .failedLogged =
        "CRI.SetSdcDadecalibration failed to start or abort SDC Dade Calibration", // sic: the name is another
                                                                                   // one
    .failed = "Failed to start or abort SDC Dade Calibration",
};

} // namespace

void CriSetBasebandSdcDadeCalibration::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", dadeCalibration: " << dadeCalibration << "\n";
}

ETIResult CriSetBasebandSdcDadeCalibrationImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
                      {perChannel("IBasebandSdcController", m_controller)});
}

StandardResponse CriSetBasebandSdcDadeCalibrationImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.channelId
             << ", command.dadeCalibration=" << command.dadeCalibration;
    });
    return setCombiner(trace, kTexts, command, m_numberOfChannels, m_controller,
                       [&](IBasebandSdcController& controller) {
                           return command.dadeCalibration ? controller.startDadeCalibration()
                                                          : controller.abortDadeCalibration();
                       });
}

StandardResponse criSetBasebandSdcDadeCalibration(const CriSetBasebandSdcDadeCalibration::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetBasebandSdcDadeCalibrationImpl(), command);
}

} // namespace zyr_top_api
