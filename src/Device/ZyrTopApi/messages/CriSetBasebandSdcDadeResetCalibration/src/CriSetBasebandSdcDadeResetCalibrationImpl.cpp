#include "CriSetBasebandSdcDadeResetCalibrationImpl.h"

#include "CombinerSetter.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetBasebandSdcDadeResetCalibration::identity.traceChannel, 3,
                         TylTraceHdrOption_Default};

constexpr CombinerSetterTexts kTexts{
    .controllerMissing = "BasebandSdc Controller missing",
    .failedLogged = "CRI.SetSdcDadeResetCalibration failed", // sic: the name is another one
    .failed = "Failed to reset Dade Calibration",
};

} // namespace

void CriSetBasebandSdcDadeResetCalibration::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << "\n";
}

ETIResult CriSetBasebandSdcDadeResetCalibrationImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
                      {perChannel("IBasebandSdcController", m_controller)});
}

StandardResponse CriSetBasebandSdcDadeResetCalibrationImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });
    ETIResult result = eTI_S_OK;
    StandardResponse response = setCombiner(trace, kTexts, command, m_numberOfChannels, m_controller,
                                            [&](IBasebandSdcController& controller) {
                                                result = controller.resetDadeCalibration();
                                                return result;
                                            });
    if (result == eTI_W_ALREADY_STARTED) {
        // sic: the blank at the end
        log(trace, 7,
            "CRI.SetSdcDadeResetCalibration is not executed because Calibration Status is In Progress or in "
            "Stopping ");
    }
    return response;
}

StandardResponse
criSetBasebandSdcDadeResetCalibration(const CriSetBasebandSdcDadeResetCalibration::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetBasebandSdcDadeResetCalibrationImpl(), command);
}

} // namespace zyr_top_api
