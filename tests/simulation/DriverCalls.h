#pragma once

#include "Drivers.h"

#include <cstdint>
#include <stdexcept>
#include <string>

/// The handle of a hardware driver that the node has to publish.
inline CDriverHandle requireDriver(const std::string& name)
{
    CDriverHandle handle;
    if (!zyr_platform::Drivers::get().fill(handle, name)) {
        throw std::logic_error(name + " isn't there");
    }
    return handle;
}

/// Reads a driver into `value` and gives its answer.
inline std::uint32_t readDriver(const std::string& name, std::uint32_t& value)
{
    const auto driver = requireDriver(name);
    return driver.read(driver.context, &value);
}

inline std::uint32_t readDriver(const std::string& name)
{
    std::uint32_t value = 0;
    return readDriver(name, value);
}

inline std::uint32_t writeDriver(const std::string& name, std::uint32_t value)
{
    const auto driver = requireDriver(name);
    return driver.write(driver.context, value);
}
