#pragma once

#include "Answer.h"
#include "DDevIo.h"
#include "Recorder.h"
#include "SystemClock.h"
#include "SystemTimeApi.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace zyr_test
{

/// The first nine fields of a `tm`, as they are.
inline std::string fieldsOf(const std::tm& time)
{
    std::string text;
    for (const int field : {time.tm_year, time.tm_mon, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec,
                            time.tm_wday, time.tm_yday, time.tm_isdst}) {
        text += (text.empty() ? "" : " ") + std::to_string(field);
    }
    return text;
}

/// Double of the wall clock. Its calls stand in the transcript; setting it also tells TZ at that moment.
class SystemTimeDouble : public Util::SystemTimeApi, public Recorder
{
  public:
    explicit SystemTimeDouble(Transcript& transcript) : Recorder(transcript, "system") {}

    int access(const char* path, int mode) override
    {
        record("access", std::string_view(path), mode);
        return onAccess.next();
    }

    std::time_t time() override
    {
        record("time");
        return onTime.next();
    }

    int stime(const std::time_t* seconds) override
    {
        const char* const zone = std::getenv("TZ");
        record("stime", *seconds, zone != nullptr ? std::string_view(zone) : std::string_view("unset"));
        errno = errorOfStime;
        return onStime.next();
    }

    Answer<int> onAccess;
    Answer<std::time_t> onTime;
    Answer<int> onStime;
    int errorOfStime = 0; ///< what errno says after each `stime`
};

/// Double of the device factory, whose devices keep to the transcript: "makeUnique32(name)", with what kind
/// of mutex came; each "ioctl" with the fields that come in; "device gone". Reading gives `read`.
class DeviceFactoryDouble : public DDevIo::Factory, public Recorder
{
  public:
    explicit DeviceFactoryDouble(Transcript& transcript) : Recorder(transcript, "factory") {}

    std::unique_ptr<DDevIo::IDevice> makeUnique32(const std::string& name,
                                                  std::unique_ptr<DDevIo::IMutex> mutex) override
    {
        const bool isPthread = dynamic_cast<DDevIo::PthreadMutex*>(mutex.get()) != nullptr;
        record("makeUnique32", name, std::string_view(isPthread ? "PthreadMutex" : "no PthreadMutex"));
        if (!isPresent) {
            return nullptr;
        }
        return std::make_unique<Device>(*this, std::move(mutex));
    }

    bool isPresent = true;
    std::tm read{};
    Answer<int> onSet;
    Answer<int> onRead;
    int errorOfIoctl = 0; ///< what errno says after each `ioctl`

  private:
    class Device : public DDevIo::IDevice
    {
      public:
        Device(DeviceFactoryDouble& factory, std::unique_ptr<DDevIo::IMutex> mutex)
            : m_factory(factory), m_mutex(std::move(mutex))
        {}
        Device(const Device&) = delete;
        Device& operator=(const Device&) = delete;

        // Closing may change errno.
        ~Device() override
        {
            m_factory.transcript().add("device gone");
            errno = EBADF;
        }

        int ioctl(int request, unsigned long argument) override
        {
            auto& time = *reinterpret_cast<std::tm*>(argument);
            char number[16];
            std::snprintf(number, sizeof number, "0x%08X", static_cast<unsigned>(request));
            m_factory.transcript().add("ioctl(" + std::string(number) + ", " + fieldsOf(time) + ")");
            int result = 0;
            if (static_cast<unsigned>(request) == 0x80247009U) {
                result = m_factory.onRead.next();
                time = m_factory.read;
            } else {
                result = m_factory.onSet.next();
            }
            errno = m_factory.errorOfIoctl;
            return result;
        }

      private:
        DeviceFactoryDouble& m_factory;
        std::unique_ptr<DDevIo::IMutex> m_mutex;
    };
};

} // namespace zyr_test
