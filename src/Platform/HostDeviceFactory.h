#pragma once

#include "DDevIo.h"

#include <memory>
#include <string>

namespace zyr_platform
{

/// Opens the devices of the host. A request to set the hardware clock is refused with EPERM unless
/// `allowSettingTheClock` has allowed it.
class HostDeviceFactory : public DDevIo::Factory
{
  public:
    /// @param folder  where the devices stand
    explicit HostDeviceFactory(std::string folder = "/dev");

    /// Opens the device for reading and writing; it is closed when the object goes. Control requests hold the
    /// mutex, if there is one, and leave the reason of a failure in errno.
    /// @param name  one file name; a name with a "/" in it names no device
    /// @return null, with the reason in errno, if there is no such device or it can't be opened
    std::unique_ptr<DDevIo::IDevice> makeUnique32(const std::string& name,
                                                  std::unique_ptr<DDevIo::IMutex> mutex) override;

  private:
    std::string m_folder;
};

} // namespace zyr_platform
