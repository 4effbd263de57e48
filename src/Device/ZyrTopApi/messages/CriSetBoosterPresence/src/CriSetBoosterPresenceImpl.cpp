#include "CriSetBoosterPresenceImpl.h"

#include "Constellation.h"
#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetBoosterPresence::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriSetBoosterPresence::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID << ", boosterPresence: " << boosterPresence
         << ", boosterGain: " << boosterGain << ", boosterMaxInputPower: " << boosterMaxInputPower
         << ", boosterMaxMod: " << convertCodeAndModulationEnumToString(boosterMaxMod);
}

ETIResult CriSetBoosterPresenceImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
                      {perChannel("IOutputPowerCalculator", m_outputPowerCalculator)});
}

StandardResponse CriSetBoosterPresenceImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.channelId=" << command.RadioChannelID
             << ", command.boosterPresence=" << command.boosterPresence;
    });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.RadioChannelID) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    IOutputPowerCalculator* const calculator = m_outputPowerCalculator.find(command.RadioChannelID);
    if (calculator == nullptr) {
        // sic: the spelling, and the controller for the calculator
        return {eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "Ouput Power Controller missing"};
    }
    if (failedUnlessZero(calculator->setBooster(command.boosterPresence, command.boosterGain,
                                                command.boosterMaxInputPower,
                                                constellationOf(command.boosterMaxMod)))) {
        return failedResponse(trace, "CRI.SetBoosterPresence failed to set booster", "Failed to set booster");
    }
    return {};
}

StandardResponse criSetBoosterPresence(const CriSetBoosterPresence::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetBoosterPresenceImpl(), command);
}

} // namespace zyr_top_api
