#include "CiManageLoopsImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

#include <string_view>
#include <utility>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CiManageLoops::identity.traceChannel, 3, TylTraceHdrOption_Default};

// The loop controller's answer for a name that it doesn't know; any other failure is one of the loop.
constexpr ResultCode kNoSuchLoop = 0x8008;

std::string_view stateText(const LoopStatePair& loop)
{
    return loop.closed ? "closed" : "open";
}

void printLoops(TextWriter& text, const std::vector<LoopStatePair>& loops)
{
    for (const LoopStatePair& loop : loops) {
        text << "[" << loop.loopName << ", " << loop.closed << "]\n";
    }
}

} // namespace

void CiManageLoops::Command::print(TextWriter& text) const
{
    text << "Loops:\n";
    printLoops(text, loops);
}

std::string CiManageLoops::Response::printResponse() const
{
    return printed(*this);
}

void CiManageLoops::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    printLoops(text, loops);
}

ETIResult CiManageLoopsImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, UncountedRules{.isRangeTested = true}, numberOfChannels,
                      {nodeWide("ILoopController", m_loopController,
                                plainText("Could not find the LoopController interface"))});
}

CiManageLoops::Response CiManageLoopsImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "msg:";
        command.print(text);
    });

    for (const LoopStatePair& loop : command.loops) {
        const ResultCode set = m_loopController->setLoop(loop.loopName, loop.closed);
        if (set == kNoSuchLoop) {
            return failedResponse<Response>(trace, failureText("Loop ", loop.loopName, " is not supported"),
                                            eTI_E_PARAMETER_INVALID);
        }
        if (failed(set)) {
            return failedResponse<Response>(
                trace, failureText("Failed to set loop ", loop.loopName, " to ", stateText(loop)));
        }
        log(trace, 3,
            [&](TextWriter& text) { text << "Loop " << loop.loopName << " set to " << stateText(loop); });
    }
    std::vector<LoopStatePair> loops;
    if (failed(m_loopController->getLoops(loops))) {
        return failedResponse<Response>(trace, "Failed to get loops from LoopController");
    }
    Response response;
    response.loops = std::move(loops);
    return response;
}

CiManageLoops::Response ciManageLoops(const CiManageLoops::Command& command)
{
    return ZyrApiHandler::executeCommand(CiManageLoopsImpl(), command);
}

} // namespace zyr_top_api
