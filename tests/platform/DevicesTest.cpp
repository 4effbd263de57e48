#include "HostDeviceFactory.h"
#include "ServiceInForce.h"
#include "SystemClock.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <mutex>
#include <thread>
#include <vector>

#include <linux/rtc.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace
{

using testing::ElementsAre;
using zyr_platform::HostDeviceFactory;
using zyr_platform::Replacement;

class RecordingMutex : public DDevIo::IMutex
{
  public:
    explicit RecordingMutex(std::vector<std::string>& calls) : m_calls(calls) {}
    ~RecordingMutex() override { m_calls.emplace_back("gone"); }
    void lock() override { m_calls.emplace_back("lock"); }
    void unlock() override { m_calls.emplace_back("unlock"); }

  private:
    std::vector<std::string>& m_calls;
};

class NoDevices : public DDevIo::Factory
{
  public:
    std::unique_ptr<DDevIo::IDevice> makeUnique32(const std::string& name,
                                                  std::unique_ptr<DDevIo::IMutex>) override
    {
        m_names.push_back(name);
        return nullptr;
    }
    std::vector<std::string> m_names;
};

std::ptrdiff_t openDescriptors()
{
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return std::distance(begin(descriptors), end(descriptors));
}

TEST(Devices, deviceOfTheHostIsOpenedAndItsFailureIsToldByErrno)
{
    const auto device = DDevIo::Factory::getInstance().makeUnique32("null", nullptr);
    ASSERT_NE(device, nullptr);
    errno = 0;
    EXPECT_EQ(device->ioctl(static_cast<int>(0x80247009U), 0), -1); // no clock request for such a device
    EXPECT_EQ(errno, ENOTTY);
}

TEST(Devices, controlRequestReachesTheDevice)
{
    const TemporaryFolder folder;
    std::ofstream(folder.path("file")) << "12345";
    HostDeviceFactory factory(folder.path(""));
    const auto device = factory.makeUnique32("file", nullptr);
    ASSERT_NE(device, nullptr);
    int readable = 0;
    EXPECT_EQ(device->ioctl(FIONREAD, reinterpret_cast<unsigned long>(&readable)), 0);
    EXPECT_EQ(readable, 5);
}

TEST(Devices, absentDeviceIsNull)
{
    const TemporaryFolder folder;
    HostDeviceFactory factory(folder.path(""));
    EXPECT_EQ(factory.makeUnique32("rtc0", nullptr), nullptr);
    EXPECT_EQ(errno, ENOENT);
}

TEST(Devices, nameThatLeadsElsewhereNamesNoDevice)
{
    HostDeviceFactory factory;
    for (const char* name : {"", "../dev/null", "/dev/null", "./null"}) {
        errno = 0;
        EXPECT_EQ(factory.makeUnique32(name, nullptr), nullptr) << name;
        EXPECT_EQ(errno, ENODEV) << name;
    }
}

TEST(Devices, mutexIsHeldForTheRequestAndGoesWithTheDevice)
{
    std::vector<std::string> calls;
    HostDeviceFactory factory;
    auto device = factory.makeUnique32("null", std::make_unique<RecordingMutex>(calls));
    ASSERT_NE(device, nullptr);
    EXPECT_THAT(calls, ElementsAre());
    device->ioctl(0, 0);
    EXPECT_THAT(calls, ElementsAre("lock", "unlock"));
    device.reset();
    EXPECT_THAT(calls, ElementsAre("lock", "unlock", "gone"));
}

TEST(Devices, hardwareClockIsSetOnlyInAProcessThatWasAllowedTo)
{
    std::vector<std::string> calls;
    HostDeviceFactory factory;
    const auto device = factory.makeUnique32("null", std::make_unique<RecordingMutex>(calls));
    ASSERT_NE(device, nullptr);
    errno = 0;
    EXPECT_EQ(device->ioctl(0x4024700A, 0), -1);
    EXPECT_EQ(errno, EPERM);
    EXPECT_THAT(calls, ElementsAre());
    zyr_platform::allowSettingTheClock(true);
    rtc_time time{};
    // Of this device the kernel says that it is no clock.
    EXPECT_EQ(device->ioctl(0x4024700A, reinterpret_cast<unsigned long>(&time)), -1);
    EXPECT_EQ(errno, ENOTTY);
    zyr_platform::allowSettingTheClock(false);
    EXPECT_THAT(calls, ElementsAre("lock", "unlock"));
}

TEST(Devices, deviceIsClosedWithItsObject)
{
    HostDeviceFactory factory;
    const auto before = openDescriptors();
    {
        const auto device = factory.makeUnique32("null", nullptr);
        EXPECT_EQ(openDescriptors(), before + 1);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST(Devices, deviceWithoutControlRequestsAnswersMinusOne)
{
    DDevIo::IDevice device;
    EXPECT_EQ(device.ioctl(1, 2), -1);
}

TEST(Devices, factoryCanBeReplacedAndComesBack)
{
    DDevIo::Factory* const host = &DDevIo::Factory::getInstance();
    NoDevices outer;
    NoDevices inner;
    {
        const Replacement<DDevIo::Factory> first(outer);
        {
            const Replacement<DDevIo::Factory> second(inner);
            EXPECT_EQ(DDevIo::Factory::getInstance().makeUnique32("rtc0", nullptr), nullptr);
        }
        EXPECT_EQ(&DDevIo::Factory::getInstance(), &outer);
    }
    EXPECT_EQ(&DDevIo::Factory::getInstance(), host);
    EXPECT_THAT(inner.m_names, ElementsAre("rtc0"));
    EXPECT_THAT(outer.m_names, ElementsAre());
}

TEST(Devices, pthreadMutexKeepsThreadsApart)
{
    DDevIo::PthreadMutex mutex(DDevIo::PthreadMutexType::Normal);
    int counted = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (int count = 0; count < 1000; ++count) {
                    const std::scoped_lock lock(mutex);
                    ++counted;
                }
            });
        }
    }
    EXPECT_EQ(counted, 4000);
}

TEST(Devices, mutexOfAnUnknownTypeIsRefused)
{
    EXPECT_THROW(DDevIo::PthreadMutex(static_cast<DDevIo::PthreadMutexType>(9)), std::system_error);
}

} // namespace
