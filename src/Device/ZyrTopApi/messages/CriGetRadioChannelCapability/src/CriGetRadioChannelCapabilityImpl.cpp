#include "CriGetRadioChannelCapabilityImpl.h"

#include "Failure.h"
#include "FrequencyCapability.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriGetRadioChannelCapability::identity.traceChannel, 3, TylTraceHdrOption_Default};

// A failed read of the power with this result is answered like any other but not logged.
constexpr std::uint32_t kUnloggedResult = 0x800A;

constexpr std::uint32_t kReferenceSecs = 10;

void takeFrequencies(const FrequencyCapability& capability, CriGetRadioChannelCapability::Response& response)
{
    response.MinTXFrequency = capability.MinTXFrequency;
    response.MaxTXFrequency = capability.MaxTXFrequency;
    response.MinRXFrequency = capability.MinRXFrequency;
    response.MaxRXFrequency = capability.MaxRXFrequency;
    response.FrequencyStepSize = capability.FrequencyStepSize;
    response.MinTXFrequencyStep = capability.MinTXFrequencyStep;
    response.MaxTXFrequencyStep = capability.MaxTXFrequencyStep;
    response.MinRXFrequencyStep = capability.MinRXFrequencyStep;
    response.MaxRXFrequencyStep = capability.MaxRXFrequencyStep;
    response.TXBaseFrequency = capability.TXBaseFrequency;
    response.RXBaseFrequency = capability.RXBaseFrequency;
    response.FrequencyBand = capability.FrequencyBand;
    response.FrequencySubBand = capability.FrequencySubBand;
}

void takeFeatures(const FeatureCapability& capability, CriGetRadioChannelCapability::Response& response)
{
    response.RfLoopAvailable = capability.RfLoopAvailable;
    response.CarrierAggregationCapable = capability.CarrierAggregationCapable;
    response.SpaceDiversityCombinerCapable = capability.SpaceDiversityCombinerCapable;
    response.LongHaulBoosterCapable = capability.LongHaulBoosterCapable;
    response.PathLatencyCapable = capability.PathLatencyCapable;
    response.Is2T2R = capability.Is2T2R;
}

} // namespace

std::string CriGetRadioChannelCapability::Command::toString() const
{
    return printed(*this);
}

void CriGetRadioChannelCapability::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID << ", radioFrameId: " << radioFrameId
         << ", minModulation: " << convertCodeAndModulationEnumToString(minModulation)
         << ", maxModulation: " << convertCodeAndModulationEnumToString(maxModulation)
         << ", referenceSec: " << referenceSecToString(referenceSec)
         << ", availableMaxPowerCutback: " << availableMaxPowerCutback
         << ", isMaxPowerCutbackValid: " << isMaxPowerCutbackValid << "\n";
}

std::string CriGetRadioChannelCapability::Response::printResponse() const
{
    return printed(*this);
}

void CriGetRadioChannelCapability::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "NumberOfChannels: " << NumberOfChannels << ", MinTemp: " << MinTemp << ", MaxTemp: " << MaxTemp
         << ", AvailableMinRFOutputPower: " << AvailableMinRFOutputPower << ", AvailableMaxRFOutputPower: ";
    for (const auto& [modulation, power] : AvailableMaxRFOutputPower) {
        text << "Modulation:" << convertCodeAndModulationEnumToString(modulation) << " Pmax:" << power
             << "\t";
    }
    text << ", MinTXFrequency: " << MinTXFrequency << ", MaxTXFrequency: " << MaxTXFrequency
         << ", MinRXFrequency: " << MinRXFrequency << ", MaxRXFrequency: " << MaxRXFrequency
         << ", FrequencyStepSize: " << FrequencyStepSize << ", MinTXFrequencyStep: " << MinTXFrequencyStep
         << ", MaxTXFrequencyStep: " << MaxTXFrequencyStep << ", MinRXFrequencyStep: " << MinRXFrequencyStep
         << ", MaxRXFrequencyStep: " << MaxRXFrequencyStep << ", TXBaseFrequency: " << TXBaseFrequency
         << ", RXBaseFrequency: " << RXBaseFrequency << ", FrequencyBand: " << FrequencyBand
         << ", FrequencySubBand: " << FrequencySubBand << ", DuplexType: " << DuplexType
         << ", AvailableRSECs: ";
    for (const ReferenceSec sec : AvailableRSECs) {
        text << referenceSecToString(sec) << "\t";
    }
    text << "\n, TapsCapable: " << TapsCapable << ", RfLoopAvailable: " << RfLoopAvailable
         << ", CarrierAggregationCapable: " << CarrierAggregationCapable
         << ", SpaceDiversityCombinerCapable: " << SpaceDiversityCombinerCapable
         << ", LongHaulBoosterCapable: " << LongHaulBoosterCapable
         << ", PathLatencyCapable: " << PathLatencyCapable << ", Is2T2R: " << Is2T2R;
}

ETIResult CriGetRadioChannelCapabilityImpl::initialize(unsigned numberOfChannels)
{
    constexpr MissingText kNoVariable = textAndName(" Could not get storage variable ");
    constexpr MissingText kNoInterface = textAndName("Error getting interface: ");
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {
                          storageVariable(m_minTemp, kNoVariable),
                          storageVariable(m_maxTemp, kNoVariable),
                          perChannel("IOutputPowerCalculator", m_outputPowerCalculator, kNoInterface),
                          perChannel("ICapabilityHandler", m_capabilityHandler, kNoInterface),
                          perChannel("IRadioCapability", m_radioCapability, kNoInterface),
                      });
}

CriGetRadioChannelCapability::Response CriGetRadioChannelCapabilityImpl::execute(const Command& command)
{
    log(trace, 5, [&](TextWriter& text) { command.print(text); });

    Response response;
    if (command.RadioChannelID > m_numberOfChannels) {
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
        return response;
    }
    IRadioCapability* const radioCapability = m_radioCapability.find(command.RadioChannelID);
    if (radioCapability == nullptr) {
        fail(response, trace, "CRI.GetRadioChannelCapability, radio capabilities not available");
        return response;
    }
    const FrequencyCapability frequencies = radioCapability->getFrequencyCapability();
    takeFrequencies(frequencies, response);
    takeFeatures(radioCapability->getFeatureCapability(), response);
    if (!readPower(command, response)) {
        return response;
    }
    response.NumberOfChannels = m_numberOfChannels;
    response.MinTemp = *m_minTemp;
    response.MaxTemp = *m_maxTemp;
    response.DuplexType = duplexTypeToString(frequencies.DuplexType);
    if (const ICapabilityHandler* const capabilityHandler =
            m_capabilityHandler.find(command.RadioChannelID)) {
        response.TapsCapable = capabilityHandler->isTapsCapable();
    }
    for (std::uint32_t sec = 0; sec < kReferenceSecs; ++sec) {
        response.AvailableRSECs.push_back(static_cast<ReferenceSec>(sec));
    }
    return response;
}

// False with the failure in the response. A failed read leaves the temporary cutback set: so required, no
// guard here.
bool CriGetRadioChannelCapabilityImpl::readPower(const Command& command, Response& response)
{
    IOutputPowerCalculator& calculator = m_outputPowerCalculator[command.RadioChannelID];
    if (command.isMaxPowerCutbackValid) {
        const ETIResult set = calculator.setTemporaryMaxPowerCutback(true, command.availableMaxPowerCutback);
        if (failed(set)) {
            fail(response, trace,
                 failureText("CRI.GetRadioChannelCapability failed to set temporary max power "
                             "cutback. SPC Result : ",
                             set),
                 eTI_E_FAILED, within("execute"));
            return false;
        }
    }
    std::map<ModulationAndCoding, int> maxPower;
    const ETIResult read =
        calculator.getMaxOutputPower(command.radioFrameId, command.minModulation, command.maxModulation,
                                     command.referenceSec, response.AvailableMinRFOutputPower, maxPower);
    if (failed(read)) {
        const std::string text = failureText("CRI.GetRadioChannelCapability failed to get max output power "
                                             "for each modulation. SPC Result : ",
                                             read);
        if (code(read) != kUnloggedResult) {
            log(trace, 1, text, within("execute"));
        }
        setResult(response, eTI_E_FAILED, text);
        return false;
    }
    response.AvailableMaxRFOutputPower = maxPowerArrayToVector(maxPower);
    if (command.isMaxPowerCutbackValid) {
        const ETIResult unset = calculator.setTemporaryMaxPowerCutback(false, 0);
        if (failed(unset)) {
            fail(response, trace,
                 failureText("CRI.GetRadioChannelCapability failed to unset temporary max power "
                             "cutback. SPC Result : ",
                             unset),
                 eTI_E_FAILED, within("execute"));
            return false;
        }
    }
    return true;
}

std::vector<std::pair<ModulationAndCoding, std::int32_t>>
CriGetRadioChannelCapabilityImpl::maxPowerArrayToVector(const std::map<ModulationAndCoding, int>& maxPower)
{
    return {maxPower.begin(), maxPower.end()};
}

CriGetRadioChannelCapability::Response
criGetRadioChannelCapability(const CriGetRadioChannelCapability::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetRadioChannelCapabilityImpl(), command);
}

} // namespace zyr_top_api
