#pragma once

#include "CDriver.h"
#include "Registration.h"

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>

namespace zyr_platform
{

/// What a hardware driver does. Both answer below 0x8000 on success. A function that is left out, and one
/// that throws, counts as a failure with 0x8000.
struct DriverFunctions
{
    std::function<std::uint32_t(std::uint32_t& value)> read;
    std::function<std::uint32_t(std::uint32_t value)> write;
};

/// The hardware drivers by name. All operations may be called from any thread; the functions of one driver
/// are never called two at once, and must not withdraw their own driver.
class Drivers
{
  public:
    static Drivers& get();

    /// Adds a driver as long as the registration lives. When it has been withdrawn none of its functions runs
    /// any more, and handles that were given out answer 0x8000, until the name is added again.
    /// @throws std::runtime_error that names the doubled name if there is such a driver already
    Registration add(const std::string& name, DriverFunctions functions);

    /// Fills the handle if there is a driver of this name; false, with nothing changed, if there is none.
    bool fill(CDriverHandle& handle, const std::string& name);

  private:
    /// Context of the handles. Stays where it is to the end of the process, because handles are never given
    /// back.
    struct Slot
    {
        std::mutex mutex;
        bool isPresent = false;
        DriverFunctions functions;
    };

    Drivers() = default;

    static std::uint32_t read(void* context, std::uint32_t* value);
    static std::uint32_t write(void* context, std::uint32_t value);

    std::mutex m_mutex;
    std::map<std::string, Slot> m_slots; ///< never shrinks
};

} // namespace zyr_platform
