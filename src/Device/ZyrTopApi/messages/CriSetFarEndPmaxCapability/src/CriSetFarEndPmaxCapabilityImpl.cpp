#include "CriSetFarEndPmaxCapabilityImpl.h"

#include "Constellation.h"
#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

#include <map>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetFarEndPmaxCapability::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriSetFarEndPmaxCapability::Command::print(TextWriter& text) const
{
    text << "radioChannelId: " << RadioChannelID << ", Modulation-maxRFOutputPowerFarEnd:\n";
    for (const auto& [modulationAndCoding, power] : maxRfOutputPowerFarEnd) {
        text << "[" << convertCodeAndModulationEnumToString(modulationAndCoding) << ", " << power << "]\n";
    }
}

ETIResult CriSetFarEndPmaxCapabilityImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, {.range = family::silentRange(eTI_E_INVALID_ARGUMENT)}, numberOfChannels,
                      m_numberOfChannels, {perChannel("IAcmHandler", m_acmHandler)});
}

StandardResponse CriSetFarEndPmaxCapabilityImpl::execute(const Command& command)
{
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.RadioChannelID) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    std::map<Modulation, int> capabilities;
    for (const auto& [modulationAndCoding, power] : command.maxRfOutputPowerFarEnd) {
        const Modulation modulation = constellationOf(modulationAndCoding);
        if (modulation == Modulation::UNDEFINED) {
            return {eTI_E_PARAMETER_INVALID, "maxRfOutputPowerFarEnd array is invalid"};
        }
        capabilities.try_emplace(modulation, power); // the first of a constellation counts
    }
    log(trace, 3, [&](TextWriter& text) { text << "capabilities.size() : " << capabilities.size(); });

    IAcmHandler& acmHandler = m_acmHandler[command.RadioChannelID];
    if (acmHandler.isFarEndPmaxCapabilityDifferent(capabilities) != eACMH_S_DIFFERENT) {
        return {};
    }
    if (failed(acmHandler.muteAcm())) {
        log(trace, 4, "DSP not accessible, DSP not muted");
    }
    log(trace, 3, [&](TextWriter& text) {
        text << "Using Pmax capabilities from far end [ch" << command.RadioChannelID << "]";
    });
    const EACMHResult set = acmHandler.setFarEndPmaxCapability(capabilities);
    if (set == eACMH_E_CACHED) {
        // sic: "accessibled"
        log(trace, 1, "DSP is not accessibled but new FE Pmax capabilities are cached");
        acmHandler.cacheThresholds();
    } else if (failed(set)) {
        // ACM stays muted.
        log(trace, 1, [&](TextWriter& text) {
            text << "CRI.SetFarEndPmaxCapability failed (EACMHResult = 0x";
            text.hex(set) << ")";
        });
        return {eTI_E_FAILED, "CRI.SetFarEndPmaxCapability failed"};
    }
    if (failed(acmHandler.restoreAcm())) {
        log(trace, 4, "DSP not accessible, DSP not restored");
    }
    return {};
}

StandardResponse criSetFarEndPmaxCapability(const CriSetFarEndPmaxCapability::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetFarEndPmaxCapabilityImpl(), command);
}

} // namespace zyr_top_api
