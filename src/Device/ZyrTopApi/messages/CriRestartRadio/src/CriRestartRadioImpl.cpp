#include "CriRestartRadioImpl.h"

#include "EnumText.h"
#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

#include <array>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriRestartRadio::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr unsigned kColdRestart = 0;

} // namespace

std::string_view CriRestartRadio::actionToString(Action value)
{
    static constexpr auto kTexts =
        std::to_array<std::string_view>({"TriggerRestart", "GetStatus", "EndRestart"});
    return textOf(kTexts, value, "Invalid", 1);
}

void CriRestartRadio::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID << ", Action: " << actionToString(Action) << "\n";
}

std::string CriRestartRadio::Response::printResponse() const
{
    return printed(*this);
}

void CriRestartRadio::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "Status: " << radioRestartStatusToString(Status) << "\n";
}

ETIResult CriRestartRadioImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace,
        family::classGuarded(SecondCallRule::Guard::AfterRange, "CriRestartRadioImpl already initialized"),
        numberOfChannels, m_numberOfChannels,
        {
            // sic: the text names another interface
            perChannel("IRadio", m_radio, textAndName("Could not find the RauHandler interface ")),
            perChannel("ISystemPowerController", m_systemPowerController,
                       textAndName(" Failed to get System Power Controller interface ")),
        });
}

CriRestartRadio::Response CriRestartRadioImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.RadioChannelID; });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.RadioChannelID) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "command.channelId > m_numberOfChannels");
    }
    Response response;
    switch (command.Action) {
    case Action::GetStatus:
        response.Status = m_radio[command.RadioChannelID].getRestartStatus();
        log(trace, 5, [&](TextWriter& text) {
            text << "CriRestartRadioImpl restart status:" << radioRestartStatusToString(response.Status);
        });
        return response;
    case Action::EndRestart:
        log(trace, 5, "CriRestartRadioImpl EndRestart");
        m_radio[command.RadioChannelID].endRestart();
        response.Status = m_radio[command.RadioChannelID].getRestartStatus();
        return response;
    case Action::TriggerRestart:
        return triggerRestart(command);
    }
    return failedResponse<Response>(trace, failureText(command.RadioChannelID.logString(), "Unknown action"));
}

CriRestartRadio::Response CriRestartRadioImpl::triggerRestart(const Command& command)
{
    IRadio& radio = m_radio[command.RadioChannelID];
    if (!radio.isAvailable()) {
        return failedResponse<Response>(trace,
                                        failureText(command.RadioChannelID.logString(), "Radio is DOWN"),
                                        eTI_E_FAILED, within("execute"));
    }
    m_systemPowerController[command.RadioChannelID].prepareRadioRestart();
    radio.triggerRestart(kColdRestart);

    Response response;
    response.Status = radio.getRestartStatus();
    const auto outcome = [&](TextWriter& text) {
        text << "CriRestartRadioImpl trigger RAU COLD restart, status: "
             << radioRestartStatusToString(response.Status);
    };
    log(trace, 3, outcome, within("execute"));
    return response;
}

CriRestartRadio::Response criRestartRadio(const CriRestartRadio::Command& command)
{
    return ZyrApiHandler::executeCommand(CriRestartRadioImpl(), command);
}

} // namespace zyr_top_api
