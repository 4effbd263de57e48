#include "SystemClock.h"

#include "ServiceInForce.h"
#include "SystemTimeApi.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <ctime>

#include <unistd.h>

namespace
{

// No test sets the clock: those that are allowed to give no time.

TEST(SystemClock, settingIsRefusedUnlessItWasAllowed)
{
    const std::time_t now = std::time(nullptr);
    errno = 0;
    EXPECT_EQ(Util::SystemTimeApi::get().stime(&now), -1);
    EXPECT_EQ(errno, EPERM);
}

TEST(SystemClock, permissionGetsPastTheRefusalAndCanBeTakenBack)
{
    zyr_platform::allowSettingTheClock(true);
    errno = 0;
    EXPECT_EQ(Util::SystemTimeApi::get().stime(nullptr), -1);
    EXPECT_EQ(errno, EFAULT);
    zyr_platform::allowSettingTheClock(false);
    EXPECT_EQ(Util::SystemTimeApi::get().stime(nullptr), -1);
    EXPECT_EQ(errno, EPERM);
}

TEST(SystemClock, hostsTimeIsThatOfTheCLibrary)
{
    const std::time_t before = std::time(nullptr);
    const std::time_t now = Util::SystemTimeApi::get().time();
    EXPECT_LE(before, now);
    EXPECT_LE(now, std::time(nullptr));
}

TEST(SystemClock, hostsDevicesAreFoundByTheirPaths)
{
    EXPECT_EQ(Util::SystemTimeApi::get().access("/dev/null", F_OK), 0);
    errno = 0;
    EXPECT_EQ(Util::SystemTimeApi::get().access("/dev/no-such-device", F_OK), -1);
    EXPECT_EQ(errno, ENOENT);
}

class NoClock : public Util::SystemTimeApi
{
  public:
    int access(const char*, int) override { return -1; }
    std::time_t time() override { return 7; }
    int stime(const std::time_t*) override { return 0; }
};

TEST(SystemClock, canBeReplacedAndComesBack)
{
    const Util::SystemTimeApi* const host = &Util::SystemTimeApi::get();
    NoClock none;
    {
        const zyr_platform::Replacement<Util::SystemTimeApi> replacement(none);
        EXPECT_EQ(Util::SystemTimeApi::get().time(), 7);
    }
    EXPECT_EQ(&Util::SystemTimeApi::get(), host);
}

} // namespace
