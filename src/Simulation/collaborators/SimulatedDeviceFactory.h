#pragma once

#include "DDevIo.h"
#include "SimulatedCollaborator.h"

#include <memory>
#include <string>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kDeviceFactoryOperations{"DDevIo", "makeUnique32", "ioctl"};

/// The node's devices: there is one, "rtc0", the hardware clock, which starts as the host's time. An order to
/// fail gives what errno says.
class SimulatedDeviceFactory final : public SimulatedCollaborator<DDevIo::Factory, kDeviceFactoryOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// The device answers the kernel's requests to set and to read a hardware clock, and refuses a time that
    /// no calendar has.
    std::unique_ptr<DDevIo::IDevice> makeUnique32(const std::string& name,
                                                  std::unique_ptr<DDevIo::IMutex> mutex) override;

  private:
    class HardwareClock;

    int request(unsigned number, unsigned long argument) const;
};

} // namespace zyr_simulation
