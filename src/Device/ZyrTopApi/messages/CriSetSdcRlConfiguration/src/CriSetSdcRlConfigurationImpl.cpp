#include "CriSetSdcRlConfigurationImpl.h"

#include "CombinerSetter.h"
#include "Initialise.h"
#include "Log.h"
#include "Modulation.h"
#include "ZyrApiHandler.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetSdcRlConfiguration::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr CombinerSetterTexts kTexts{
    .controllerMissing = "Space Diversity Combiner Controller missing",
    .failedLogged = "CRI.SetSdcRlConfiguration failed to set RL configuration attributes (maxModulation, "
                    "channelSpacing, xpicEnabled)",
    .failed = "Failed to set RL configuration attributes",
};

// The spacings that the combiner knows, in kHz. Its code for them is the number of whole MHz.
constexpr std::array kSpacings_kHz{3500,   5000,   6000,    7000,    10000,   14000,   20000,  28000,  30000,
                                   40000,  50000,  56000,   60000,   62000,   62500,   80000,  100000, 112000,
                                   125000, 150000, 200000,  250000,  300000,  350000,  400000, 450000, 500000,
                                   600000, 750000, 1000000, 1250000, 1500000, 1750000, 2000000};
constexpr std::int32_t kUnknownSpacing = 3000;

// The text between the first dash and the last, or behind a single one.
std::string_view betweenDashes(std::string_view text)
{
    const std::size_t first = text.find('-');
    if (first == std::string_view::npos) {
        return text;
    }
    const std::size_t last = text.rfind('-');
    return last == first ? text.substr(first + 1) : text.substr(first + 1, last - first - 1);
}

std::int32_t spacingCode(std::int32_t spacing_kHz)
{
    return std::ranges::find(kSpacings_kHz, spacing_kHz) != kSpacings_kHz.end() ? spacing_kHz / 1000
                                                                                : kUnknownSpacing;
}

ETIResult configure(ISpaceDiversityCombinerController& controller,
                    const CriSetSdcRlConfiguration::Command& command)
{
    const Modulation modulation =
        modulationStringToEnum(std::string(betweenDashes(command.selectedMaxAcm)) + "QAM");
    const std::int32_t spacing =
        spacingCode(std::stoi(command.channelSpacing)); // its exceptions are the caller's
    const auto converted = [&](TextWriter& text) {
        text << "Max modulation: " << modulationToString(modulation) << ", channel spacing: " << spacing
             << ", xpic enabled: " << command.xpicEnabled;
    };
    log(trace, 5, converted, within("execute"));
    return controller.setRlConfiguration(modulation, spacing, command.xpicEnabled);
}

} // namespace

void CriSetSdcRlConfiguration::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", selectedMaxAcm: " << selectedMaxAcm
         << ", channelSpacing: " << channelSpacing << ", xpicEnabled: " << xpicEnabled << "\n";
}

ETIResult CriSetSdcRlConfigurationImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
                      {perChannel("ISpaceDiversityCombinerController", m_controller,
                                  textAndName("Error getting interface to "))});
}

StandardResponse CriSetSdcRlConfigurationImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.channelId
             << ", command.selectedMaxAcm=" << command.selectedMaxAcm
             << ", command.channelSpacing=" << command.channelSpacing
             << ", command.xpicEnabled=" << command.xpicEnabled;
    });
    return setCombiner(
        trace, kTexts, command, m_numberOfChannels, m_controller,
        [&](ISpaceDiversityCombinerController& controller) { return configure(controller, command); });
}

StandardResponse criSetSdcRlConfiguration(const CriSetSdcRlConfiguration::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetSdcRlConfigurationImpl(), command);
}

} // namespace zyr_top_api
