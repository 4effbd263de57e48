#include "HostDeviceFactory.h"

#include "OwnedDescriptor.h"
#include "SystemClock.h"

#include <cerrno>
#include <mutex>
#include <utility>

#include <fcntl.h>
#include <linux/rtc.h>
#include <sys/ioctl.h>

namespace zyr_platform
{

namespace
{

class HostDevice : public DDevIo::IDevice
{
  public:
    HostDevice(OwnedDescriptor descriptor, std::unique_ptr<DDevIo::IMutex> mutex)
        : m_descriptor(std::move(descriptor)), m_mutex(std::move(mutex))
    {}

    int ioctl(int request, unsigned long argument) override
    {
        // Requests from 0x80000000 on come as negative numbers; the C library wants them as they were.
        const auto number = static_cast<unsigned>(request);
        if (number == RTC_SET_TIME && !isSettingTheClockAllowed()) {
            errno = EPERM;
            return -1;
        }
        std::unique_lock<DDevIo::IMutex> lock;
        if (m_mutex) {
            lock = std::unique_lock(*m_mutex);
        }
        return ::ioctl(m_descriptor.number(), number, argument);
    }

  private:
    OwnedDescriptor m_descriptor;
    std::unique_ptr<DDevIo::IMutex> m_mutex;
};

} // namespace

HostDeviceFactory::HostDeviceFactory(std::string folder) : m_folder(std::move(folder)) {}

std::unique_ptr<DDevIo::IDevice> HostDeviceFactory::makeUnique32(const std::string& name,
                                                                 std::unique_ptr<DDevIo::IMutex> mutex)
{
    if (name.empty() || name.find('/') != std::string::npos) {
        errno = ENODEV;
        return nullptr;
    }
    OwnedDescriptor descriptor(::open((m_folder + "/" + name).c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY));
    if (!descriptor.isOpen()) {
        return nullptr;
    }
    return std::make_unique<HostDevice>(std::move(descriptor), std::move(mutex));
}

} // namespace zyr_platform
