#pragma once

#include "Registration.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace zyr_platform
{

/// The phases that modules have registered, in groups.
///
/// All operations may be called from any thread, also from a phase: a phase may run groups, and register and
/// withdraw phases, itself included. Runs of different threads wait for each other; so does a withdrawal,
/// after which the phase doesn't run any more. A phase therefore must not wait for a thread that does one of
/// these.
class ModuleManager
{
  public:
    /// What a module does in a phase, for one channel. Below 0x8000 is success. An exception counts as a
    /// failure with 0x8000.
    using Phase = std::function<std::uint32_t(std::uint32_t channel)>;

    static ModuleManager& get();

    /// Adds a phase behind the others of its group, as long as the registration lives.
    /// @param name  who registered it, for the trace
    /// @throws std::invalid_argument if the phase is empty
    Registration registerPhase(std::uint32_t group, std::string name, Phase phase);

    /// Runs the phases of the group in the order of their registration, up to the first one that fails; those
    /// behind it don't run. The failure is traced at level 1 with the phase's name. Phases that are
    /// registered during the run don't take part in it.
    /// @return 0 if all succeeded or there is none, else the failed phase's code, from 0x8000
    std::uint32_t runGroup(std::uint32_t group, std::uint32_t channel);

    /// Names of the phases of a group, in the order in which they run.
    std::vector<std::string> phases(std::uint32_t group) const;

  private:
    struct Entry
    {
        std::uint32_t group;
        std::string name;
        Phase phase;
        bool isRegistered = true;
    };

    ModuleManager() = default;

    mutable std::recursive_mutex m_mutex;
    std::vector<std::shared_ptr<Entry>> m_entries;
};

} // namespace zyr_platform
