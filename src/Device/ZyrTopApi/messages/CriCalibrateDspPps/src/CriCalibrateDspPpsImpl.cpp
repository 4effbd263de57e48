#include "CriCalibrateDspPpsImpl.h"

#include "Failure.h"
#include "IDspChannelApi.h"
#include "Initialise.h"
#include "Log.h"
#include "Required.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriCalibrateDspPps::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriCalibrateDspPps::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId
         << ", PpsRtcCalibrationMode: " << ppsRtcCalibrationModeToString(ppsRtcCalibrationMode)
         << ", PpsPeriodMilliSec: " << ppsPeriodMilliSec << "\n";
}

ETIResult CriCalibrateDspPpsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

StandardResponse CriCalibrateDspPpsImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.channelId) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    IDspChannelApi& dspChannelApi =
        required(m_dspApi[command.channelId].getDspChannelApi(), command.channelId);
    const auto period = static_cast<std::uint16_t>(command.ppsPeriodMilliSec);
    if (failed(dspChannelApi.ppsRtcCalibrationStart(command.ppsRtcCalibrationMode, period))) {
        return failedResponse(trace, "CRI.CalibrateDspPps failed to calibrate "); // sic: blank at the end
    }
    return {};
}

StandardResponse criCalibrateDspPps(const CriCalibrateDspPps::Command& command)
{
    return ZyrApiHandler::executeCommand(CriCalibrateDspPpsImpl(), command);
}

} // namespace zyr_top_api
