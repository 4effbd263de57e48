#include "Drivers.h"

#include "PlatformResult.h"

#include <stdexcept>
#include <utility>

namespace zyr_platform
{

namespace
{

// Callers are written against a C interface and expect no exceptions.
template <class Function, class Argument>
std::uint32_t resultOf(const Function& function, Argument&& argument) noexcept
{
    try {
        return function ? function(std::forward<Argument>(argument)) : kFailed;
    } catch (...) {
        return kFailed;
    }
}

} // namespace

Drivers& Drivers::get()
{
    static auto* const drivers = new Drivers;
    return *drivers;
}

Registration Drivers::add(const std::string& name, DriverFunctions functions)
{
    const std::scoped_lock lock(m_mutex);
    Slot& slot = m_slots[name];
    const std::scoped_lock slotLock(slot.mutex);
    if (slot.isPresent) {
        throw std::runtime_error("there is already a driver of the name \"" + name + "\"");
    }
    slot.functions = std::move(functions);
    slot.isPresent = true;
    return Registration([&slot] {
        const std::scoped_lock withdrawalLock(slot.mutex);
        slot.functions = {};
        slot.isPresent = false;
    });
}

bool Drivers::fill(CDriverHandle& handle, const std::string& name)
{
    const std::scoped_lock lock(m_mutex);
    const auto entry = m_slots.find(name);
    if (entry == m_slots.end()) {
        return false;
    }
    Slot& slot = entry->second;
    const std::scoped_lock slotLock(slot.mutex);
    if (!slot.isPresent) {
        return false;
    }
    handle = {&slot, &Drivers::write, nullptr, &Drivers::read};
    return true;
}

std::uint32_t Drivers::read(void* context, std::uint32_t* value)
{
    if (context == nullptr || value == nullptr) {
        return kFailed;
    }
    Slot& slot = *static_cast<Slot*>(context);
    const std::scoped_lock lock(slot.mutex);
    return resultOf(slot.functions.read, *value);
}

std::uint32_t Drivers::write(void* context, std::uint32_t value)
{
    if (context == nullptr) {
        return kFailed;
    }
    Slot& slot = *static_cast<Slot*>(context);
    const std::scoped_lock lock(slot.mutex);
    return resultOf(slot.functions.write, value);
}

} // namespace zyr_platform

std::uint32_t CDriver_GetInterface(CDriverHandle* handle, const char* name)
{
    if (handle == nullptr || name == nullptr) {
        return zyr_platform::kFailed;
    }
    return zyr_platform::Drivers::get().fill(*handle, name) ? zyr_platform::kOk : zyr_platform::kFailed;
}
