#include "Storage.h"

#include "CStorageManager.h"
#include "PlatformResult.h"

#include <atomic>

namespace zyr_platform
{

Storage& Storage::get()
{
    static auto* const storage = new Storage;
    return *storage;
}

void Storage::set(const std::string& name, std::int32_t value)
{
    const std::scoped_lock lock(m_mutex);
    Variable& variable = m_variables[name];
    // Commands read the content without our mutex.
    std::atomic_ref(variable.content).store(value, std::memory_order_relaxed);
    variable.isPresent = true;
}

bool Storage::remove(const std::string& name)
{
    const std::scoped_lock lock(m_mutex);
    const auto variable = m_variables.find(name);
    if (variable == m_variables.end() || !variable->second.isPresent) {
        return false;
    }
    variable->second.isPresent = false;
    return true;
}

std::optional<std::int32_t> Storage::value(const std::string& name) const
{
    const std::scoped_lock lock(m_mutex);
    const auto variable = m_variables.find(name);
    if (variable == m_variables.end() || !variable->second.isPresent) {
        return std::nullopt;
    }
    return variable->second.content;
}

std::int32_t* Storage::address(const std::string& name)
{
    const std::scoped_lock lock(m_mutex);
    const auto variable = m_variables.find(name);
    if (variable == m_variables.end() || !variable->second.isPresent) {
        return nullptr;
    }
    return &variable->second.content;
}

} // namespace zyr_platform

std::uint32_t CStorageManager_GetVariableContentAddressByName(const char* name, void** address)
{
    if (name == nullptr || address == nullptr) {
        return zyr_platform::kFailed;
    }
    std::int32_t* const content = zyr_platform::Storage::get().address(name);
    if (content == nullptr) {
        return zyr_platform::kFailed;
    }
    *address = content;
    return zyr_platform::kOk;
}
