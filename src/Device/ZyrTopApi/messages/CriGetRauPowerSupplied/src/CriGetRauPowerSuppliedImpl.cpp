#include "CriGetRauPowerSuppliedImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriGetRauPowerSupplied::identity.traceChannel, 3, TylTraceHdrOption_Default};

// Unlike other families: the count stays 0 if a radio unit is missing.
constexpr InitialiseRules kRules{.countStored = InitialiseRules::CountStored::Last};

} // namespace

void CriGetRauPowerSupplied::Command::print(TextWriter& text) const
{
    text << "RadioChannelId: " << RadioChannelID; // sic: the small "d"
}

std::string CriGetRauPowerSupplied::Response::printResponse() const
{
    return printed(*this);
}

void CriGetRauPowerSupplied::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RauPowerSupplied: " << RauPowerSupplied << "\n";
}

ETIResult CriGetRauPowerSuppliedImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, kRules, numberOfChannels, m_numberOfChannels, {perChannel("IRadio", m_radio)});
}

CriGetRauPowerSupplied::Response CriGetRauPowerSuppliedImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.RadioChannelID; });

    if (m_numberOfChannels < command.RadioChannelID) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT,
                                 "RadioChannelId out of bounds"); // sic: the small "d"
    }
    const std::uint32_t served = command.RadioChannelID == 2 ? 2 : 1; // channel 0 by the first radio unit
    Response response;
    response.RauPowerSupplied = m_radio[served].isPowerSupplied();
    return response;
}

CriGetRauPowerSupplied::Response criGetRauPowerSupplied(const CriGetRauPowerSupplied::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetRauPowerSuppliedImpl(), command);
}

} // namespace zyr_top_api
