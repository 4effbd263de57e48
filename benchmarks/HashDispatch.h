#pragma once

#include "BaseResponse.h"
#include "TextWriter.h"
#include "TylTrace.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

/// The dispatcher that one would write oneself: a hash map of functions under a mutex. It promises what the
/// library's promises: one command at a time; the table may change between two calls, and an entry lives as
/// long as it is called; an entry of another type is answered, not called; an exception frees the mutex; each
/// step can be traced, and a text is only built when its level is on.
namespace benchmark_hash
{

using namespace zyr_top_api;

struct Entry
{
    virtual ~Entry() = default;
};

template <class Impl>
struct FunctionEntry final : Entry
{
    std::function<typename Impl::Response(const typename Impl::Command&)> function;
};

class Dispatcher
{
  public:
    template <class Impl>
    void add(const std::string& name, std::shared_ptr<Impl> impl)
    {
        auto entry = std::make_shared<FunctionEntry<Impl>>();
        entry->function = [impl = std::move(impl)](const auto& command) { return impl->execute(command); };
        m_entries[name] = std::move(entry);
    }

    template <class Impl>
    typename Impl::Response call(const std::string& name, const typename Impl::Command& command)
    {
        log(6, [] { return std::string("executeCommand"); });
        const std::lock_guard guard(m_mutex);
        log(6, [&] { return "Running " + name; });
        const auto found = m_entries.find(name);
        if (found == m_entries.end()) {
            return {};
        }
        const std::shared_ptr<Entry> kept = found->second;
        auto* const entry = dynamic_cast<FunctionEntry<Impl>*>(kept.get());
        if (entry == nullptr) {
            log(1, [&] { return "Error: Cast failed for " + name; });
            return {eTI_E_FAILED, "Error: Cast failed"};
        }
        log(5, [&] { return name + " Request: " + printed(command); });
        typename Impl::Response response = entry->function(command);
        log(6, [&] { return "Return " + name; });
        log(5, [&] { return name + " Response: " + response.printResponse(); });
        return response;
    }

  private:
    template <class Text>
    void log(TylTraceLevel level, const Text& text) const
    {
        if (m_trace.isEnabled(level)) {
            m_trace.logMsg(level, {}, text());
        }
    }

    static inline constinit TylTrace m_trace{"ZYR.BENCHMARK.Hash", 3, TylTraceHdrOption_Default};

    std::mutex m_mutex;
    std::unordered_map<std::string, std::shared_ptr<Entry>> m_entries;
};

} // namespace benchmark_hash
