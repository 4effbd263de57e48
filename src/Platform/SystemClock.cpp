#include "SystemClock.h"

#include "HostSystemTime.h"

#include <atomic>
#include <cerrno>

#include <unistd.h>

namespace zyr_platform
{

namespace
{

constinit std::atomic<bool> settingAllowed{false};

} // namespace

void allowSettingTheClock(bool allowed)
{
    settingAllowed = allowed;
}

bool isSettingTheClockAllowed()
{
    return settingAllowed;
}

int HostSystemTime::access(const char* path, int mode)
{
    return ::access(path, mode);
}

std::time_t HostSystemTime::time()
{
    return std::time(nullptr);
}

int HostSystemTime::stime(const std::time_t* seconds)
{
    if (!isSettingTheClockAllowed()) {
        errno = EPERM;
        return -1;
    }
    if (seconds == nullptr) {
        errno = EFAULT;
        return -1;
    }
    timespec time{};
    time.tv_sec = *seconds;
    return clock_settime(CLOCK_REALTIME, &time);
}

} // namespace zyr_platform
