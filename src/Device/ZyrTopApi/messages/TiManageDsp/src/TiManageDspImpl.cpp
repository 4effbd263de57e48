#include "TiManageDspImpl.h"

#include "DefaultSleepApi.h"
#include "EnumText.h"
#include "Failure.h"
#include "IDspAcmApi.h"
#include "IDspChannelApi.h"
#include "IDspControlApi.h"
#include "IDspStatusApi.h"
#include "Initialise.h"
#include "Log.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiManageDsp::identity.traceChannel, 3, TylTraceHdrOption_Default};

// What an injected failure of the communication answers.
constexpr unsigned kComFailure = 32778;
constexpr unsigned kComNotInitialized = 32780;

constexpr std::uint32_t kLongestWait_s = 100;

} // namespace

std::string_view injectErrorToString(TiManageDsp::InjectError value)
{
    static constexpr auto kTexts =
        std::to_array<std::string_view>({"ComFailure", "ComNotInitialized", "AcmEngineEnableFailure",
                                         "I2CErrorDuringDspConfiguration", "UpdateThresholdFailure"});
    return textOf(kTexts, value, "Undefined");
}

ETIResult TiManageDspImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi, plainText("Could not find the DSP API interface"))});
}

StandardResponse TiManageDspImpl::execute(const Command& command)
{
    logEnter(trace);
    if (m_numberOfChannels < command.RadioChannelID) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    IDspApi& dspApi = m_dspApi[command.RadioChannelID];
    IDspStatusApi* const statusApi = dspApi.getDspStatusApi();
    if (statusApi == nullptr) {
        return failedResponse(
            trace, failureText("TI.ManageDsp failed to get DSP status API for ch", command.RadioChannelID));
    }
    IDspControlApi* const controlApi = dspApi.getDspControlApi();
    if (controlApi == nullptr) {
        return failedResponse(
            trace, failureText("TI.ManageDsp failed to get DSP core API for ch", command.RadioChannelID));
    }
    IDspAcmApi* const acmApi = dspApi.getAcmApi();
    if (acmApi == nullptr) {
        return failedResponse(
            trace, failureText("TI.ManageDsp failed to get DSP acm API for ch", command.RadioChannelID));
    }
    IDspChannelApi* const channelApi = dspApi.getDspChannelApi();
    if (channelApi == nullptr) {
        return failedResponse(
            trace, failureText("TI.ManageDsp failed to get DSP channel API for ch", command.RadioChannelID));
    }
    if (command.WaitInSeconds > kLongestWait_s) {
        return failedResponse(trace,
                              failureText("TI.ManageDsp Wait duration cannot be more than 100 seconds for ch",
                                          command.RadioChannelID));
    }
    switch (command.injectError) {
    case InjectError::ComFailure:
        controlApi->injectComError(kComFailure, command.injectCounter);
        break;
    case InjectError::ComNotInitialized:
        statusApi->injectComError(kComNotInitialized, command.injectCounter);
        break;
    case InjectError::AcmEngineEnableFailure:
        acmApi->injectEnableFailure(command.injectCounter);
        break;
    case InjectError::I2CErrorDuringDspConfiguration:
        channelApi->injectI2cError(command.injectCounter);
        break;
    case InjectError::UpdateThresholdFailure:
        acmApi->injectThresholdFailure(command.injectCounter);
        break;
    default:
        return failedResponse(trace, "DSP error Undefined not supported");
    }
    log(trace, 3, [&](TextWriter& text) {
        text << "TI.ManageDsp request: RadioChannelID: " << command.RadioChannelID
             << ", Inject error: " << injectErrorToString(command.injectError)
             << ", Inject counter: " << command.injectCounter
             << ", WaitInSeconds : " << command.WaitInSeconds; // sic: a blank before the last colon
    });
    if (command.WaitInSeconds != 0) {
        Util::DefaultSleepApi::get().sleep(1000 * command.WaitInSeconds);
    }
    return {};
}

} // namespace zyr_top_api
