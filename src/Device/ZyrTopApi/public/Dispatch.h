#pragma once

#include "BaseResponse.h"
#include "CmdWrapper.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "TextWriter.h"

#include <memory>
#include <mutex>
#include <typeinfo>

namespace zyr_top_api
{

/// All that the dispatcher's core has to know of a command's types.
struct DispatchTypes
{
    const CommandIdentity& identity;
    const std::type_info& wrapperType;
    /// Null unless the entry is the command's own or derived from it.
    CmdWrapperBase* (*cast)(CmdWrapperBase& entry);
    void (*printCommand)(const void* command, TextWriter& text);
    void (*printResponse)(const BaseResponse& response, TextWriter& text);
};

/// One call on its way through the dispatcher: entry, lock, gate, lookup and logs, compiled once for all
/// commands. The lock is released at the end of the scope, on every way out.
class ZYR_EXPORT DispatchScope
{
  public:
    /// Logs the entry, takes the command mutex, tests the gate, finds the command's entry, tests its type,
    /// and logs the request. A command that runs outside the mutex has its request logged before all else.
    explicit DispatchScope(const DispatchTypes& types, const void* command);
    ~DispatchScope();
    DispatchScope(const DispatchScope&) = delete;
    DispatchScope& operator=(const DispatchScope&) = delete;

    /// The command's entry. Null if the call ends here. A command that nobody registered is no failure: the
    /// caller gets the default response.
    CmdWrapperBase* entry() const { return m_entry.get(); }

    /// Sets the failure that was met on the way to the entry, if any, and logs the response.
    void finish(BaseResponse& response) const;

  private:
    enum class Outcome
    {
        Passed,
        Refused,    // by the gate
        CastFailed, // an entry of another command's type bears the name
    };

    void find();
    void logRequest(const void* command) const;

    const DispatchTypes& m_types;
    std::unique_lock<std::mutex> m_lock;
    std::shared_ptr<CmdWrapperBase> m_entry; // keeps the entry alive during the call
    Outcome m_outcome = Outcome::Passed;
};

template <class XImpl>
inline const DispatchTypes kDispatchTypes{
    XImpl::identity,
    typeid(CmdWrapper<XImpl>),
    [](CmdWrapperBase& entry) -> CmdWrapperBase* { return dynamic_cast<CmdWrapper<XImpl>*>(&entry); },
    [](const void* command, TextWriter& text) {
        static_cast<const typename XImpl::Command*>(command)->print(text);
    },
    [](const BaseResponse& response, TextWriter& text) {
        static_cast<const typename XImpl::Response&>(response).print(text);
    },
};

} // namespace zyr_top_api
