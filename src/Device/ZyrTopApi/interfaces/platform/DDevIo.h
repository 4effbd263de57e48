#pragma once

#include "Export.h"

#include <cstdint>
#include <memory>
#include <string>

/// Access to the node's devices.
namespace DDevIo
{

/// Guards a device while it is in use.
class ZYR_EXPORT IMutex
{
  public:
    virtual ~IMutex() = default;
    virtual void lock() = 0;
    virtual void unlock() = 0;
};

/// Kinds of `PthreadMutex`.
enum class PthreadMutexType : std::uint32_t
{
    Normal = 0,
};

/// A mutex of the C library.
class ZYR_EXPORT PthreadMutex : public IMutex
{
  public:
    explicit PthreadMutex(PthreadMutexType type);
    ~PthreadMutex() override;
    PthreadMutex(const PthreadMutex&) = delete;
    PthreadMutex& operator=(const PthreadMutex&) = delete;
    void lock() override;
    void unlock() override;

  private:
    struct Native;
    std::unique_ptr<Native> m_native;
};

/// An open device.
class ZYR_EXPORT IDevice
{
  public:
    virtual ~IDevice() = default;

    /// A control request of the device. 0 is success; the default body answers -1, as a device without
    /// control requests does.
    virtual int ioctl(int request, unsigned long argument)
    {
        static_cast<void>(request);
        static_cast<void>(argument);
        return -1;
    }
};

/// Opens devices by name. The factory in force can be replaced by the owner of the process.
class ZYR_EXPORT Factory
{
  public:
    virtual ~Factory() = default;

    /// The factory in force.
    static Factory& getInstance();

    /// Opens a device of 32-bit access, such as "rtc0". Null if there is no such device.
    virtual std::unique_ptr<IDevice> makeUnique32(const std::string& name, std::unique_ptr<IMutex> mutex) = 0;
};

} // namespace DDevIo
