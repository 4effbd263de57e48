#include "CriGetAirInterfaceCapabilityImpl.h"
#include "EnumText.h"
#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

#include <utility>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriGetAirInterfaceCapability::identity.traceChannel, 3, TylTraceHdrOption_Default};

// A limit at the lowest of all modulations leaves a frame nothing.
constexpr ModulationAndCoding kNothingLeft = ModulationAndCoding::HALF_BPSK_STRONG;

FrameFormatCapability capabilityOf(const RadioFrameRecord& frame, ModulationAndCoding limit)
{
    FrameFormatCapability capability;
    capability.RadioFrameID = frame.radioFrameId;
    capability.ChannelSpacing = frame.channelSpacing;
    capability.TelecomStd = frame.telecomStd;
    capability.AirInterface = frame.airInterface;
    capability.FrameLinkType =
        frame.modulations.front().linkType; // the database gives each frame at least one
    for (const RadioFrameModulationRecord& record : frame.modulations) {
        if (record.name.empty()) {
            continue;
        }
        const ModulationAndCoding modulation = convertStringToCodeAndModulationEnum(record.name);
        if (limit >= modulation) {
            capability.AvailableModulations.push_back(
                {modulation, record.capacity, capability.FrameLinkType == FFConfigType::Xpic});
        }
    }
    return capability;
}

} // namespace

std::string_view CriGetAirInterfaceCapability::releasedFilterToString(ReleasedFilter filter)
{
    static constexpr auto texts = std::to_array<std::string_view>({"OnlyReleased", "All"});
    return textOf(texts, filter, "Undefined", 1);
}

std::string_view CriGetAirInterfaceCapability::telecomFilterToString(TelecomFilter filter)
{
    static constexpr auto texts = std::to_array<std::string_view>({"Etsi", "Ansi", "All"});
    return textOf(texts, filter, "Undefined", 1);
}

std::string_view CriGetAirInterfaceCapability::rauFilterToString(RauFilter filter)
{
    static constexpr auto texts = std::to_array<std::string_view>({"OnlyRauCompatible", "All"});
    return textOf(texts, filter, "Undefined", 1);
}

std::string CriGetAirInterfaceCapability::Command::toString() const
{
    return printed(*this);
}

void CriGetAirInterfaceCapability::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID
         << ", ReleasedFilter: " << releasedFilterToString(ReleasedFilter)
         << ", TelecomFilter: " << telecomFilterToString(TelecomFilter)
         << ", RauFilter: " << rauFilterToString(RauFilter) << "\n";
}

void FrameFormatCapability::print(TextWriter& text) const
{
    text << "RadioFrameID: " << RadioFrameID << ", ChannelSpacing: " << ChannelSpacing
         << ", TelecomStd: " << TelecomStd << ", AirInterface: " << AirInterface
         << ", ActualRxModulation:" << ffConfigTypeToString(FrameLinkType) // sic: the label of the link type
         << ", AvailableModulations: \n";
    for (const FrameFormatModulation& modulation : AvailableModulations) {
        text << "\t\tModulation: " << convertCodeAndModulationEnumToString(modulation.Modulation)
             << ", Capacity: " << modulation.Capacity << ", XpicCapable: " << modulation.XpicCapable << "\n";
    }
    text << "MaxAvailableAcmCa: " << convertCodeAndModulationEnumToString(MaxAvailableAcmCa) << "\n";
}

std::string CriGetAirInterfaceCapability::Response::printResponse() const
{
    return printed(*this);
}

void CriGetAirInterfaceCapability::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    for (const FrameFormatCapability& capability : FrameFormatCapabilities) {
        capability.print(text);
    }
}

ETIResult CriGetAirInterfaceCapabilityImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace, family::kPlain, numberOfChannels, m_numberOfChannels,
        {
            nodeWide("IHardwareConfigurationHandler", m_hardwareConfigurationHandler,
                     plainText("Could not find the Hardware Configuration Handler Interface")),
            storageVariablePresence(
                "common.xpicCapable",
                plainText("Failed to get HW XPIC capable variable from hardware database")),
            perChannel("ICapabilityHandler", m_capabilityHandler, textAndName("Error getting interface: ")),
        });
}

CriGetAirInterfaceCapability::Response CriGetAirInterfaceCapabilityImpl::execute(const Command& command)
{
    Response response;
    if (command.RadioChannelID > m_numberOfChannels) {
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
        return response;
    }
    const std::vector<RadioFrameRecord> frames = m_hardwareConfigurationHandler->getRadioFrames(
        command.ReleasedFilter == ReleasedFilter::OnlyReleased);
    if (frames.empty()) {
        fail(response, trace, "CRI.GetAirInterfaceCapability failed, no supported radio frames.");
        return response;
    }
    for (const RadioFrameRecord& frame : frames) {
        ModulationAndCoding limit = ModulationAndCoding::UNDEFINED;
        if (!findLimit(command.RadioChannelID, frame.radioFrameId, limit)) {
            setResult(response, eTI_E_INVALID_ARGUMENT,
                      "Failed to get PerformanceProfileArray from HardwareConfigurationHandler");
            return response;
        }
        if (limit != kNothingLeft) {
            response.FrameFormatCapabilities.push_back(capabilityOf(frame, limit));
        }
    }
    return response;
}

bool CriGetAirInterfaceCapabilityImpl::findLimit(std::uint32_t channel, std::uint32_t radioFrameId,
                                                 ModulationAndCoding& limit)
{
    const ICapabilityHandler& capabilityHandler = m_capabilityHandler[channel];
    if (!capabilityHandler.isMaxAcmLimitedByHw()) {
        return true;
    }
    const std::uint32_t profileChannel = channel == 2 ? 2 : 1;
    std::vector<std::int16_t> profile;
    if (failed(m_hardwareConfigurationHandler->getPerformanceProfileArray(profileChannel, radioFrameId,
                                                                          profile))) {
        return false;
    }
    limit = capabilityHandler.getMaxAcmLimitedByHw(profile);
    return true;
}

CriGetAirInterfaceCapability::Response
criGetAirInterfaceCapability(const CriGetAirInterfaceCapability::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetAirInterfaceCapabilityImpl(), command);
}

} // namespace zyr_top_api
