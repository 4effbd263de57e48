#include "Dispatch.h"

#include "Log.h"
#include "ZyrApiHandler.h"

#include <cstring>
#include <vector>

namespace zyr_top_api
{

namespace
{

constexpr std::string_view kDashLine = "\n----------------------------------------------------\n";

bool bearsName(const CmdWrapperBase& entry, std::string_view wireName)
{
    return entry.name().size() == wireName.size() &&
           std::memcmp(entry.name().data(), wireName.data(), wireName.size()) == 0;
}

// A linear scan on purpose: the table's owner may have changed it between two calls, and comparing lengths
// first makes it as fast as a cache that would have to notice that.
const std::shared_ptr<CmdWrapperBase>* firstEntry(std::string_view wireName)
{
    const auto& entries = ZyrApiHandler::m_cmds;
    const auto* const end = entries.data() + entries.size();
#pragma GCC unroll 4
    for (const auto* entry = entries.data(); entry != end; ++entry) {
        if (bearsName(**entry, wireName)) {
            return entry;
        }
    }
    return nullptr;
}

CmdWrapperBase* castTo(const DispatchTypes& types, CmdWrapperBase& entry)
{
    // The exact type is the rule, a derived one (of a test bench, say) the exception that needs the full
    // cast.
    return typeid(entry) == types.wrapperType ? &entry : types.cast(entry);
}

// A record of the frame. All of them are steps of `executeCommand`.
template <class Text>
[[gnu::always_inline]] inline void logStep(const TylTrace& trace, TylTraceLevel level, const Text& text,
                                           int line = __builtin_LINE())
{
    log(trace, level, text, within("executeCommand", __FILE__, line));
}

} // namespace

// Always inlined, like the log above: both are part of every call.
[[gnu::always_inline]] inline void DispatchScope::find()
{
    const CommandIdentity& identity = m_types.identity;
    if (identity.isGated() && !ZyrApiHandler::m_tiEnabled.load(std::memory_order_relaxed)) {
        m_outcome = Outcome::Refused;
        // sic: the log names the command, the answer doesn't
        logStep(ZyrApiHandler::m_trace, 1, [&](TextWriter& text) {
            text << "Error: Command " << identity.wireName << " not available";
        });
        return;
    }

    logStep(ZyrApiHandler::m_trace, 6,
            [&](TextWriter& text) { text << "Running " << identity.className << "::Command"; });

    const std::shared_ptr<CmdWrapperBase>* const found = firstEntry(identity.wireName);
    if (found == nullptr) {
        return;
    }
    CmdWrapperBase* const entry = castTo(m_types, **found);
    if (entry == nullptr) {
        m_outcome = Outcome::CastFailed;
        // sic: the log names the command, the answer doesn't
        logStep(ZyrApiHandler::m_trace, 1, [&](TextWriter& text) {
            text << "Error: Cast of CmdWrapper failed for " << identity.wireName;
        });
        return;
    }
    m_entry = std::shared_ptr<CmdWrapperBase>(*found, entry);
}

[[gnu::always_inline]] inline void DispatchScope::logRequest(const void* command) const
{
    logStep(ZyrApiHandler::m_comTrace, 5, [&](TextWriter& text) {
        text << m_types.identity.wireName << " Request: ";
        m_types.printCommand(command, text);
    });
}

DispatchScope::DispatchScope(const DispatchTypes& types, const void* command)
    : m_types(types), m_lock(ZyrApiHandler::m_cmdMutex, std::defer_lock)
{
    logEnter(ZyrApiHandler::m_trace, within("executeCommand"));
    const bool isLocked = types.identity.route != Route::DispatchedUnlocked;
    if (isLocked) {
        m_lock.lock();
    } else {
        logRequest(command);
    }
    find();
    if (isLocked && m_entry != nullptr) {
        logRequest(command);
    }
}

// Out of line, so that no command carries a copy.
DispatchScope::~DispatchScope() = default;

void DispatchScope::finish(BaseResponse& response) const
{
    if (m_outcome == Outcome::Refused) {
        setResult(response, eTI_E_OPERATION_NOT_ALLOWED, "Error: Command not available");
        return;
    }
    if (m_outcome == Outcome::CastFailed) {
        setResult(response, eTI_E_FAILED, "Error: Cast of CmdWrapper failed");
    }
    logStep(ZyrApiHandler::m_trace, 6,
            [&](TextWriter& text) { text << "Return " << m_types.identity.responseLabel; });
    logStep(ZyrApiHandler::m_comTrace, 5, [&](TextWriter& text) {
        text << m_types.identity.wireName << " Response: ";
        m_types.printResponse(response, text);
        text << kDashLine;
    });
}

} // namespace zyr_top_api
