#include "TiGetTXRFDetectedOutputPowerImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "TextWriter.h"
#include "TxDetectorData.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiGetTXRFDetectedOutputPower::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr std::int32_t kHighDetector = 1;
constexpr std::int32_t kLowDetector = 0;

} // namespace

std::string TiGetTXRFDetectedOutputPower::Response::printResponse() const
{
    return printed(*this);
}

void TiGetTXRFDetectedOutputPower::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RadioChannelID: " << radioChannelId << ", usingHighDetector: " << usingHighDetector
         << ", switchToHighLevel: " << switchToHighLevel << ", switchToLowLevel: " << switchToLowLevel
         << ", txRFDetectorADCValueHigh: " << txRFDetectorADCValueHigh
         << ", txRFDetectorADCValueLow: " << txRFDetectorADCValueLow
         << ", powerFromVoltageHigh: " << powerFromVoltageHigh
         << ", powerFromVoltageLow: " << powerFromVoltageLow
         << ", powerTemperatureCompensationHigh: " << powerTemperatureCompensationHigh
         << ", powerTemperatureCompensationLow: " << powerTemperatureCompensationLow
         << ", powerFrequencyTemperatureCompensationHigh: " << powerFrequencyTemperatureCompensationHigh
         << ", powerFrequencyTemperatureCompensationLow: " << powerFrequencyTemperatureCompensationLow
         << ", modulationCompensationHigh: " << modulationCompensationHigh
         << ", modulationCompensationLow: " << modulationCompensationLow
         << ", bandwidthCompensationHigh: " << bandwidthCompensationHigh
         << ", bandwidthCompensationLow: " << bandwidthCompensationLow
         << ", detectedPowerHigh: " << detectedPowerHigh << ", detectedPowerLow: " << detectedPowerLow;
}

ETIResult TiGetTXRFDetectedOutputPowerImpl::initialize(unsigned numberOfChannels)
{
    // sic: a full stop in the name, and always channel 1
    return initialise(
        trace, UncountedRules{.entryTellsCount = true}, numberOfChannels,
        {nodeWide("IOutputPowerHandler.1", m_outputPowerHandler, textAndName("Could not find "))});
}

TiGetTXRFDetectedOutputPower::Response TiGetTXRFDetectedOutputPowerImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "cmd.channelId=" << command.channelId; });
    log(trace, 4, [&](TextWriter& text) {
        text << "Request: ";
        text << "RadioChannelID: " << command.channelId;
    });
    Response response = read(command);
    log(trace, 4, [&](TextWriter& text) {
        text << "Response: ";
        response.print(text);
    });
    return response;
}

TiGetTXRFDetectedOutputPower::Response TiGetTXRFDetectedOutputPowerImpl::read(const Command& command)
{
    Response response;
    if (command.channelId != response.radioChannelId) {
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
        return response;
    }
    std::int32_t power = 0;
    if (failed(m_outputPowerHandler->testGetDetectedPower(power))) {
        setResult(response, eTI_E_FAILED, "testGetDetectedPower() failed");
        return response;
    }
    const auto detected = [&](TextWriter& text) { text << "Detected RfPower: " << power; };
    log(trace, 4, detected, within("execute"));
    bool usingHigh = false;
    std::int32_t switchToHigh = 0;
    std::int32_t switchToLow = 0;
    if (failed(m_outputPowerHandler->testGetDetectorInUse(usingHigh, switchToHigh, switchToLow))) {
        setResult(response, eTI_E_FAILED, "testGetDetectorInUse() failed");
        return response;
    }
    TxDetectorData high;
    high.highDetector = kHighDetector;
    TxDetectorData low;
    low.highDetector = kLowDetector;
    if (failed(m_outputPowerHandler->testGetDetectorData(high)) ||
        failed(m_outputPowerHandler->testGetDetectorData(low))) {
        setResult(response, eTI_E_FAILED, "testGetDetectorData() failed");
        return response;
    }
    response.usingHighDetector = usingHigh;
    response.switchToHighLevel = switchToHigh;
    response.switchToLowLevel = switchToLow;
    response.txRFDetectorADCValueHigh = high.adcValue;
    response.txRFDetectorADCValueLow = low.adcValue;
    response.powerFromVoltageHigh = high.powerFromVoltage;
    response.powerFromVoltageLow = low.powerFromVoltage;
    response.powerTemperatureCompensationHigh = high.powerTemperatureCompensation;
    response.powerTemperatureCompensationLow = low.powerTemperatureCompensation;
    response.powerFrequencyTemperatureCompensationHigh = high.powerFrequencyTemperatureCompensation;
    response.powerFrequencyTemperatureCompensationLow = low.powerFrequencyTemperatureCompensation;
    response.modulationCompensationHigh = high.modulationCompensation;
    response.modulationCompensationLow = low.modulationCompensation;
    response.bandwidthCompensationHigh = high.bandwidthCompensation;
    response.bandwidthCompensationLow = low.bandwidthCompensation;
    response.detectedPowerHigh = high.detectedPower;
    response.detectedPowerLow = low.detectedPower;
    return response;
}

} // namespace zyr_top_api
