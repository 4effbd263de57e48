#pragma once

#include "CiGetFastEvents.h"
#include "CmdDescription.h"
#include "CmdWrapper.h"
#include "Dispatch.h"
#include "Export.h"
#include "TylTrace.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace zyr_top_api
{

class CiGetFastEventsImpl;

/// The dispatcher: leads each command from its exported function to the one object that executes it.
///
/// The registering module fills the tables before the first command and doesn't change them while commands
/// run. Commands may then be called from any thread; all but "CI.GetFastEvents" run one at a time, without a
/// time-out. An exception that leaves a command reaches the caller; the command mutex is free then.
class ZYR_EXPORT ZyrApiHandler
{
  public:
    ZyrApiHandler() = delete;

    /// Runs the registration functions of the "CI." and "CRI." commands, in order.
    static void registerCriFunctionInIm();

    /// Runs the registration functions of the test commands, in order, and opens the test gate.
    static void registerTiFunctionInIm();

    /// Opens or closes the gate of the gated commands, from the next call on. From any thread.
    static void setTiEnabled(bool tiEnabled);

    /// Dispatches a command. The first argument only selects the type. A command without an entry in `m_cmds`
    /// answers with its default response and `eTI_S_OK`.
    template <class XImpl>
    static typename XImpl::Response executeCommand(const XImpl&, const typename XImpl::Command& command)
    {
        DispatchScope scope(kDispatchTypes<XImpl>, &command);
        CmdWrapperBase* const entry = scope.entry();
        // Built in place, whichever way it comes about.
        typename XImpl::Response response =
            entry != nullptr ? static_cast<CmdWrapper<XImpl>*>(entry)->impl().execute(command)
                             : typename XImpl::Response();
        scope.finish(response);
        return response;
    }

    /// Dispatches the long poll: outside the command mutex, the request logged before anything else.
    static CiGetFastEvents::Response executeCommand(const CiGetFastEventsImpl&,
                                                    const CiGetFastEvents::Command& command);

    /// The command table. The first entry with a name wins. No entry is null.
    static std::vector<std::shared_ptr<CmdWrapperBase>> m_cmds;
    static std::vector<void (*)()> m_registerInImFunctionsCri;
    static std::vector<void (*)()> m_registerInImFunctionsTi;
    /// The catalogue of commands; filled and read by the registering module alone.
    static std::vector<CmdDescription> m_allCommandsDescData;

  private:
    friend class DispatchScope;

    static TylTrace m_trace;
    static TylTrace m_comTrace;
    static std::mutex m_cmdMutex;
    static std::atomic<bool> m_tiEnabled;
};

} // namespace zyr_top_api
