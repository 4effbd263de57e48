#include "ModuleManager.h"

#include "CModuleManager.h"
#include "PlatformResult.h"
#include "TylTrace.h"

#include <exception>
#include <stdexcept>
#include <utility>

namespace zyr_platform
{

namespace
{

constinit TylTrace trace("ZYR.ModuleManager", 3, TylTraceHdrOption_Default);

void traceFailure(const std::string& text)
{
    if (trace.isEnabled(1)) {
        trace.logMsg(1, {__builtin_FILE(), __builtin_LINE(), "runGroup"}, text);
    }
}

std::uint32_t run(const std::string& name, const ModuleManager::Phase& phase, std::uint32_t channel)
{
    const std::string who = "phase " + name + " failed for channel " + std::to_string(channel);
    try {
        const std::uint32_t result = phase(channel);
        if (result >= kFailed) {
            traceFailure(who + " with " + std::to_string(result));
        }
        return result;
    } catch (const std::exception& exception) {
        traceFailure(who + " with the exception: " + exception.what());
    } catch (...) {
        traceFailure(who + " with an exception");
    }
    return kFailed;
}

} // namespace

ModuleManager& ModuleManager::get()
{
    static auto* const manager = new ModuleManager;
    return *manager;
}

Registration ModuleManager::registerPhase(std::uint32_t group, std::string name, Phase phase)
{
    if (!phase) {
        throw std::invalid_argument("the phase \"" + name + "\" is empty");
    }
    const auto entry = std::make_shared<Entry>(Entry{group, std::move(name), std::move(phase)});
    const std::scoped_lock lock(m_mutex);
    m_entries.push_back(entry);
    return Registration([this, entry] {
        const std::scoped_lock withdrawalLock(m_mutex);
        entry->isRegistered = false;
        std::erase(m_entries, entry);
    });
}

std::uint32_t ModuleManager::runGroup(std::uint32_t group, std::uint32_t channel)
{
    const std::scoped_lock lock(m_mutex);
    const auto entries = m_entries;
    for (const auto& entry : entries) {
        if (entry->group != group || !entry->isRegistered) {
            continue;
        }
        const std::uint32_t result = run(entry->name, entry->phase, channel);
        if (result >= kFailed) {
            return result;
        }
    }
    return kOk;
}

std::vector<std::string> ModuleManager::phases(std::uint32_t group) const
{
    const std::scoped_lock lock(m_mutex);
    std::vector<std::string> names;
    for (const auto& entry : m_entries) {
        if (entry->group == group) {
            names.push_back(entry->name);
        }
    }
    return names;
}

} // namespace zyr_platform

std::uint32_t CModuleManager_RunGroup(std::uint32_t group, std::uint32_t channel)
{
    return zyr_platform::ModuleManager::get().runGroup(group, channel);
}
