#include "ClockDoubles.h"
#include "CommandTest.h"
#include "KeptZone.h"
#include "SystemClock.h"
#include "TiManageRealTimeClockImpl.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include <linux/capability.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

// The host's own clocks. They are never set: what is to be seen is the kernel's refusal, in a process of its
// own that has given up the right to set them.

namespace zyr_top_api
{
namespace
{

struct Rights
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct sets[_LINUX_CAPABILITY_U32S_3]{};
};

// Takes CAP_SYS_TIME from all sets of the process. False if that can't be seen to have worked.
bool giveUpTheRightToSetTheClock()
{
    constexpr unsigned word = CAP_TO_INDEX(CAP_SYS_TIME);
    constexpr unsigned bit = CAP_TO_MASK(CAP_SYS_TIME);
    Rights rights;
    if (syscall(SYS_capget, &rights.header, rights.sets) != 0) {
        return false;
    }
    rights.sets[word].effective &= ~bit;
    rights.sets[word].permitted &= ~bit;
    rights.sets[word].inheritable &= ~bit;
    if (syscall(SYS_capset, &rights.header, rights.sets) != 0) {
        return false;
    }
    Rights left;
    return syscall(SYS_capget, &left.header, left.sets) == 0 && (left.sets[word].effective & bit) == 0 &&
           (left.sets[word].permitted & bit) == 0;
}

// What a function writes in a process of its own without that right.
template <class Function>
std::string inAProcessWithoutTheRight(Function function)
{
    int ends[2]{};
    if (pipe(ends) != 0) {
        return "no pipe";
    }
    const pid_t child = fork();
    if (child == 0) {
        std::string told = "the right could not be given up";
        if (giveUpTheRightToSetTheClock()) {
            zyr_platform::allowSettingTheClock(true);
            told = function();
        }
        const bool isTold = write(ends[1], told.data(), told.size()) == static_cast<ssize_t>(told.size());
        _exit(isTold ? 0 : 1);
    }
    close(ends[1]);
    std::string told;
    char bytes[4096];
    for (ssize_t count = 0; (count = read(ends[0], bytes, sizeof bytes)) > 0;) {
        told.append(bytes, static_cast<std::size_t>(count));
    }
    close(ends[0]);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    return told;
}

class OnTheSystemClockAlone : public TiManageRealTimeClockImpl
{
  public:
    bool hasRealTimeClock() const override { return false; }
};

class TiManageRealTimeClockHostTest : public zyr_test::CommandTest
{
  protected:
    // Were it ever to be set, it would be set to what it is.
    static std::string now()
    {
        const std::time_t seconds = std::time(nullptr);
        std::tm fields{};
        gmtime_r(&seconds, &fields);
        char text[18];
        std::strftime(text, sizeof text, "%Y%m%dT%H:%M:%S", &fields);
        return text;
    }
};

TEST_F(TiManageRealTimeClockHostTest, KernelRefusesToSetTheSystemClock)
{
    const std::string moment = now();
    const std::string told = inAProcessWithoutTheRight([&] {
        setTraceLevel("ZYR.TI.TiManageRealTimeClock", 5);
        OnTheSystemClockAlone impl;
        tell(impl.execute({moment}));
        return transcript.text();
    });
    EXPECT_EQ(told, R"(
3 ZYR.TI.TiManageRealTimeClock: There is no Real Time Clock, so only the system time will be read and written. Changes will not survive a reboot
5 ZYR.TI.TiManageRealTimeClock: Setting system time from command: )" +
                        moment + R"(
2 ZYR.TI.TiManageRealTimeClock: Failed to set the system clock from )" +
                        moment +
                        R"(: Operation not permitted
result 0x8000 4 "Could not set the system clock."
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Could not set the system clock.
)");
}

TEST_F(TiManageRealTimeClockHostTest, HardwareClockIsNotThereOrTheKernelRefusesToSetIt)
{
    const bool isThere = access("/dev/rtc0", R_OK | W_OK) == 0;
    const std::string told = inAProcessWithoutTheRight([&] {
        const std::time_t seconds = std::time(nullptr);
        std::tm moment{};
        gmtime_r(&seconds, &moment);
        TiManageRealTimeClockImpl impl;
        const bool isSet = impl.writeRealTimeClock(moment);
        return (isSet ? "set" : "not set") + transcript.text();
    });
    EXPECT_EQ(told, std::string("not set\n1 ZYR.TI.TiManageRealTimeClock: ") +
                        (isThere ? "Failed to access the real time clock device rtc0: Permission denied\n"
                                 : "The Real time clock device rtc0 is not present on this system\n"));
}

TEST_F(TiManageRealTimeClockHostTest, SystemTimeIsTheHosts)
{
    OnTheSystemClockAlone impl;
    const std::string before = now();
    const std::string read = impl.execute({}).dateTime;
    EXPECT_LE(before, read);
    EXPECT_LE(read, now());
}

TEST_F(TiManageRealTimeClockHostTest, ProcessThatWasNotAllowedToSetTheClockIsRefusedByThePlatform)
{
    OnTheSystemClockAlone impl;
    const zyr_test::KeptZone zone;
    EXPECT_FALSE(zyr_platform::isSettingTheClockAllowed());
    EXPECT_EQ(impl.execute({now()}).faultString, "Could not set the system clock.");
}

} // namespace
} // namespace zyr_top_api
