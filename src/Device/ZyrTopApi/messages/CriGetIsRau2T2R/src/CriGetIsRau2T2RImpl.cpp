#include "CriGetIsRau2T2RImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriGetIsRau2T2R::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriGetIsRau2T2R::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID << "\n";
}

std::string CriGetIsRau2T2R::Response::printResponse() const
{
    return printed(*this);
}

void CriGetIsRau2T2R::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "NumberOfChannels: " << NumberOfChannels << ", IsRau2T2R: " << IsRau2T2R;
}

ETIResult CriGetIsRau2T2RImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace,
        family::classGuarded(SecondCallRule::Guard::BeforeRange, "CriGetIsRau2T2RImpl already initialized",
                             InitialiseRules::CountStored::First),
        numberOfChannels, m_numberOfChannels,
        {perChannel("IRauHandler", m_rauHandler, plainText("Could not find the Rau Handler interface"))});
}

CriGetIsRau2T2R::Response CriGetIsRau2T2RImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.RadioChannelID; });

    if (m_numberOfChannels < command.RadioChannelID) {
        return refusal<Response>(eTI_E_PARAMETER_INVALID, "RadioChannelID > m_numberOfChannels");
    }
    IRauHandler* const rauHandler = m_rauHandler.find(command.RadioChannelID);
    if (rauHandler == nullptr) {
        return failedResponse<Response>(trace, "CRI.GetIsRau2T2R, rau handler not available");
    }
    Response response;
    response.IsRau2T2R = rauHandler->isRau2T2R();
    log(trace, 5, [&](TextWriter& text) {
        text << "CriGetIsRau2T2R successfully executed: rau at channelId=" << command.RadioChannelID
             << " isRau2T2R=" << response.IsRau2T2R;
    });
    return response;
}

CriGetIsRau2T2R::Response criGetIsRau2T2R(const CriGetIsRau2T2R::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetIsRau2T2RImpl(), command);
}

} // namespace zyr_top_api
