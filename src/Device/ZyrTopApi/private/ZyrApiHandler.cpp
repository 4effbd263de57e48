#include "ZyrApiHandler.h"

#include "CiGetFastEventsImpl.h"
#include "Log.h"

namespace zyr_top_api
{

constinit TylTrace ZyrApiHandler::m_trace{"ZYR.ZyrTopApi", 3, TylTraceHdrOption_Default};
constinit TylTrace ZyrApiHandler::m_comTrace{"ZYR.COMM", 3, TylTraceHdrOption_Default};
constinit std::vector<std::shared_ptr<CmdWrapperBase>> ZyrApiHandler::m_cmds;
constinit std::vector<void (*)()> ZyrApiHandler::m_registerInImFunctionsCri;
constinit std::vector<void (*)()> ZyrApiHandler::m_registerInImFunctionsTi;
constinit std::vector<CmdDescription> ZyrApiHandler::m_allCommandsDescData;
constinit std::mutex ZyrApiHandler::m_cmdMutex;
constinit std::atomic<bool> ZyrApiHandler::m_tiEnabled{false};

namespace
{

void runAll(const std::vector<void (*)()>& functions)
{
    for (const auto function : functions) {
        function();
    }
}

} // namespace

void ZyrApiHandler::registerCriFunctionInIm()
{
    logEnter(m_trace);
    runAll(m_registerInImFunctionsCri);
}

void ZyrApiHandler::registerTiFunctionInIm()
{
    logEnter(m_trace);
    runAll(m_registerInImFunctionsTi);
    setTiEnabled(true);
}

void ZyrApiHandler::setTiEnabled(bool tiEnabled)
{
    logEnter(m_trace, [&](TextWriter& text) { text << "tiEnabled=" << tiEnabled; });
    m_tiEnabled.store(tiEnabled, std::memory_order_relaxed);
}

CiGetFastEvents::Response ZyrApiHandler::executeCommand(const CiGetFastEventsImpl&,
                                                        const CiGetFastEvents::Command& command)
{
    DispatchScope scope(kDispatchTypes<CiGetFastEventsImpl>, &command);
    CmdWrapperBase* const entry = scope.entry();
    CiGetFastEvents::Response response =
        entry != nullptr ? static_cast<CmdWrapper<CiGetFastEventsImpl>*>(entry)->impl().execute(command)
                         : CiGetFastEvents::Response();
    scope.finish(response);
    return response;
}

} // namespace zyr_top_api
