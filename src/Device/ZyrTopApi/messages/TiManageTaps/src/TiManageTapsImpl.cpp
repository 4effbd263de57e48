#include "TiManageTapsImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiManageTaps::identity.traceChannel, 3, TylTraceHdrOption_Default};

// The sense of the last argument is the controller's.
constexpr int kIdleRateOffsetOption = 1;

} // namespace

std::string TiManageTaps::Response::printResponse() const
{
    return printed(*this);
}

void TiManageTaps::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RadioChannelID: " << RadioChannelID << ", TapsEnable: " << TapsEnable
         << ", IdleRateOffset: " << IdleRateOffset << ", IdleRateThresholdFactor: " << IdleRateThresholdFactor
         << ", Kvalue: " << Kvalue << ", TapsLogActive: " << TapsLogActive
         << ", LogPeriodSec: " << LogPeriodSec << ", HrlbEnabled: " << HrlbEnabled;
    if (TapsLogData.hasValue()) {
        text << "DataSample: " << TapsLogData.value().toString(); // sic: no separator
    }
}

ETIResult TiManageTapsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {
                          perChannel("ITapsController", m_tapsController),
                          perChannel("ITapsControllerLog", m_tapsControllerLog),
                      });
}

TiManageTaps::Response TiManageTapsImpl::execute(const Command& command)
{
    logEnter(trace);
    if (m_numberOfChannels != 1 && m_numberOfChannels != 2) {
        return refusal<Response>(eTI_E_FAILED, "TiManageTapsImpl not initialized");
    }
    if (m_numberOfChannels < command.RadioChannelID) {
        return refusal<Response>(eTI_E_PARAMETER_INVALID, "RadioChannelID out of bounds");
    }
    ITapsController* const tapsController = m_tapsController.find(command.RadioChannelID);
    ITapsControllerLog* const tapsControllerLog = m_tapsControllerLog.find(command.RadioChannelID);
    if (tapsController == nullptr || tapsControllerLog == nullptr) {
        return refusal<Response>(eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "One or more null pointer objects");
    }
    setPlainValues(command, *tapsController);
    if (command.TapsEnable.hasValue() && failed(tapsController->setTapsEnable(command.TapsEnable.value()))) {
        return failedResponse<Response>(trace, "TI.ManageTaps failed to set TAPS enable");
    }
    Response response;
    if (command.LogRequestOption.hasValue() && !handleLogRequest(command, *tapsControllerLog, response)) {
        return response;
    }
    readBack(command, *tapsController, *tapsControllerLog, response);
    return response;
}

// Their results are ignored.
void TiManageTapsImpl::setPlainValues(const Command& command, ITapsController& tapsController)
{
    if (command.IdleRateOffset.hasValue()) {
        tapsController.setIdleRateOffset(command.IdleRateOffset.value(), kIdleRateOffsetOption);
    }
    if (command.IdleRateThresholdFactor.hasValue()) {
        tapsController.setIdleRateThresholdFactor(command.IdleRateThresholdFactor.value());
    }
    if (command.Kvalue.hasValue()) {
        tapsController.setKvalue(command.Kvalue.value());
    }
    if (command.HrlbEnabled.hasValue()) {
        tapsController.setHrlbEnabled(command.HrlbEnabled.value());
    }
}

// False ends the command with the response's failure.
bool TiManageTapsImpl::handleLogRequest(const Command& command, ITapsControllerLog& log, Response& response)
{
    switch (command.LogRequestOption.value()) {
    case LogRequestOption::StartLog:
        if (failed(log.startLog())) {
            fail(response, trace, "TI.ManageTaps failed to start log", eTI_E_FAILED, within("execute"));
            return false;
        }
        return true;
    case LogRequestOption::StopLog:
        if (failed(log.stopLog())) {
            fail(response, trace, "TI.ManageTaps failed to stop log", eTI_E_FAILED, within("execute"));
            return false;
        }
        return true;
    case LogRequestOption::SetLogPeriod:
        if (!command.Time.hasValue()) {
            fail(response, trace, "TI.ManageTaps: LogPeriodSec called without Time value",
                 eTI_E_REQUIRED_INPUT_MISSING, within("execute"));
            return false;
        }
        log.setLogPeriod(command.Time.value()); // a refusal shows in the period that is read back
        return true;
    case LogRequestOption::DumpLogToFile:
        if (failed(log.dumpLogToFile())) {
            fail(response, trace, "TI.ManageTaps failed to dump log to file", eTI_E_FAILED,
                 within("execute"));
            return false;
        }
        return true;
    case LogRequestOption::ReadSample: {
        zyr_top_api::TapsLogData sample;
        if (failed(log.readSample(sample))) {
            fail(response, trace, "TI.ManageTaps failed to read sample from log", eTI_E_FAILED,
                 within("execute"));
            return false;
        }
        response.TapsLogData = sample;
        return true;
    }
    }
    fail(response, trace, "TI.ManageTaps: Unknown LogRequestOption", eTI_E_INVALID_ARGUMENT,
         within("execute"));
    return false;
}

void TiManageTapsImpl::readBack(const Command& command, ITapsController& tapsController,
                                ITapsControllerLog& log, Response& response)
{
    response.RadioChannelID = command.RadioChannelID;
    response.TapsEnable = tapsController.getTapsEnable();
    response.TapsLogActive = log.isLogActive();
    std::uint32_t period = 0;
    if (failed(log.getLogPeriod(period))) {
        // sic: the doubled word
        fail(response, trace, "TI.ManageTaps failed to to get log period", eTI_E_FAILED, within("execute"));
        return;
    }
    response.LogPeriodSec = period;
    response.IdleRateOffset = tapsController.getIdleRateOffset();
    response.IdleRateThresholdFactor = tapsController.getIdleRateThresholdFactor();
    response.Kvalue = tapsController.getKvalue();
    response.HrlbEnabled = tapsController.getHrlbEnabled();
}

} // namespace zyr_top_api
