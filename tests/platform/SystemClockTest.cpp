#include "SystemClock.h"

#include "SystemTime.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace
{

// No test sets the clock: those that are allowed to give no time.

TEST(SystemClock, settingIsRefusedUnlessItWasAllowed)
{
    const std::time_t now = std::time(nullptr);
    errno = 0;
    EXPECT_EQ(Util::stime(&now), -1);
    EXPECT_EQ(errno, EPERM);
}

TEST(SystemClock, permissionGetsPastTheRefusalAndCanBeTakenBack)
{
    zyr_platform::allowSettingTheClock(true);
    errno = 0;
    EXPECT_EQ(Util::stime(nullptr), -1);
    EXPECT_EQ(errno, EFAULT);
    zyr_platform::allowSettingTheClock(false);
    EXPECT_EQ(Util::stime(nullptr), -1);
    EXPECT_EQ(errno, EPERM);
}

} // namespace
