#include "CriSetActiveSubBandImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetActiveSubBand::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriSetActiveSubBand::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID << ", subBand: " << subBand << "\n";
}

ETIResult CriSetActiveSubBandImpl::initialize(unsigned numberOfChannels)
{
    // sic: without the leading blank of most
    return initialise(trace, family::kGuarded, numberOfChannels, m_numberOfChannels,
                      {perChannel("IRadio", m_radio, textAndName("Error getting interface to "))});
}

StandardResponse CriSetActiveSubBandImpl::execute(const Command& command)
{
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.RadioChannelID) {
        log(trace, 1, [&](TextWriter& text) {
            text << "command.channelId: " << command.RadioChannelID << " m_numberOfChannels "
                 << m_numberOfChannels;
        });
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    log(trace, 5, [&](TextWriter& text) { text << "RAU subband request is: " << command.subBand; });

    if (failed(m_radio[command.RadioChannelID].setActiveSubBand(
            static_cast<unsigned char>(command.subBand & 0xFFU)))) {
        return failedResponse(trace, "CRI.SetActiveSubBand failed to set subBand", "Failed to set subBand");
    }
    return {};
}

StandardResponse criSetActiveSubBand(const CriSetActiveSubBand::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetActiveSubBandImpl(), command);
}

} // namespace zyr_top_api
