#include "SimulatedSystemTime.h"

#include "TraceClock.h"

#include <cerrno>
#include <chrono>

namespace zyr_simulation
{

int SimulatedSystemTime::access(const char* path, int /*mode*/)
{
    if (const auto code = fault("access")) {
        errno = static_cast<int>(*code);
        return -1;
    }
    if (path != std::string_view("/dev/rtc")) {
        errno = ENOENT;
        return -1;
    }
    return 0;
}

std::time_t SimulatedSystemTime::time()
{
    return read([&] { return std::chrono::floor<std::chrono::seconds>(node().systemTime()).count(); });
}

int SimulatedSystemTime::stime(const std::time_t* seconds)
{
    if (const auto code = fault("stime")) {
        errno = static_cast<int>(*code);
        return -1;
    }
    const std::chrono::seconds wanted(*seconds);
    locked([&] {
        node().clocks.system = wanted - node().now();
        const auto host = std::chrono::system_clock::now().time_since_epoch();
        zyr_platform::shiftTraceTime(wanted - host);
    });
    return 0;
}

} // namespace zyr_simulation
