#include "SystemClock.h"

#include "SystemTime.h"

#include <atomic>
#include <cerrno>

namespace
{

constinit std::atomic<bool> settingAllowed{false};

} // namespace

void zyr_platform::allowSettingTheClock(bool allowed)
{
    settingAllowed = allowed;
}

int Util::stime(const std::time_t* seconds)
{
    if (!settingAllowed) {
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
