#include "CriSetRauPowerSuppliedImpl.h"

#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetRauPowerSupplied::identity.traceChannel, 3, TylTraceHdrOption_Default};

// Unlike other families: the count stays 0 if a radio unit is missing.
constexpr InitialiseRules kRules{.countStored = InitialiseRules::CountStored::Last};

} // namespace

void CriSetRauPowerSupplied::Command::print(TextWriter& text) const
{
    text << "RadioChannelId: " << RadioChannelID; // sic: the small "d", and the channel alone
}

ETIResult CriSetRauPowerSuppliedImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, kRules, numberOfChannels, m_numberOfChannels, {perChannel("IRadio", m_radio)});
}

StandardResponse CriSetRauPowerSuppliedImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.RadioChannelID; });

    if (m_numberOfChannels < command.RadioChannelID) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds"}; // sic: the small "d"
    }
    const std::uint32_t served = command.RadioChannelID == 2 ? 2 : 1; // channel 0 by the first radio unit
    m_radio[served].setPowerSupplied(command.RauPowerSupplied);
    return {};
}

StandardResponse criSetRauPowerSupplied(const CriSetRauPowerSupplied::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetRauPowerSuppliedImpl(), command);
}

} // namespace zyr_top_api
