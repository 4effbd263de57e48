#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace zyr_platform
{

/// The variables of the hardware storage, signed 32-bit numbers by name. All operations may be called from
/// any thread.
class Storage
{
  public:
    static Storage& get();

    /// Sets a variable, which is made if there is none. Readers see the old number or the new one.
    void set(const std::string& name, std::int32_t value);

    /// Removes a variable, so that its name isn't found any more. Who holds its address may go on reading the
    /// last number: a content stays where it is to the end of the process, also when the variable comes back.
    /// @return false if there was no such variable
    bool remove(const std::string& name);

    /// The variable's number, none if there is no such variable.
    std::optional<std::int32_t> value(const std::string& name) const;

    /// Where the variable's number stands; null if there is no such variable.
    std::int32_t* address(const std::string& name);

  private:
    struct Variable
    {
        std::int32_t content = 0;
        bool isPresent = false;
    };

    Storage() = default;

    mutable std::mutex m_mutex;
    std::map<std::string, Variable> m_variables; ///< never shrinks, so that addresses hold
};

} // namespace zyr_platform
