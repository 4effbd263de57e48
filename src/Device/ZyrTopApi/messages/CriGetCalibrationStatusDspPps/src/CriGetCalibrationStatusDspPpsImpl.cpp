#include "CriGetCalibrationStatusDspPpsImpl.h"

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

constinit TylTrace trace{CriGetCalibrationStatusDspPps::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriGetCalibrationStatusDspPps::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << "\n";
}

std::string CriGetCalibrationStatusDspPps::Response::printResponse() const
{
    return printed(*this);
}

void CriGetCalibrationStatusDspPps::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "PpsCalibStatus: " << ppsCalibStatusToString(ppsCalibStatus) << "\n";
}

ETIResult CriGetCalibrationStatusDspPpsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

CriGetCalibrationStatusDspPps::Response CriGetCalibrationStatusDspPpsImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });

    if (m_numberOfChannels < command.channelId) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
    }
    IDspChannelApi& dspChannelApi =
        required(m_dspApi[command.channelId].getDspChannelApi(), command.channelId);
    Response response;
    if (failed(dspChannelApi.ppsStatusGet(response.ppsCalibStatus, response.ppsCalibReasonOfFailure))) {
        fail(response, trace, "CRI.GetCalibrationStatusDspPps failed to get calibrationStatus.");
        return response;
    }
    log(trace, 5, [&](TextWriter& text) {
        text << "DSP PPS Calibration Status = " << ppsCalibStatusToString(response.ppsCalibStatus);
    });
    if (response.ppsCalibStatus == PpsCalibStatus::Failed) {
        log(trace, 5, [&](TextWriter& text) {
            text << "Reason of failure: "
                 << ppsCalibReasonOfFailureToString(response.ppsCalibReasonOfFailure);
        });
    }
    return response;
}

CriGetCalibrationStatusDspPps::Response
criGetCalibrationStatusDspPps(const CriGetCalibrationStatusDspPps::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetCalibrationStatusDspPpsImpl(), command);
}

} // namespace zyr_top_api
