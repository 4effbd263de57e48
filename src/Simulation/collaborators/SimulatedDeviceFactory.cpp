#include "SimulatedDeviceFactory.h"

#include <cerrno>
#include <chrono>

#include <linux/rtc.h>

namespace zyr_simulation
{

namespace
{

using std::chrono::days;
using std::chrono::nanoseconds;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::year_month_day;

bool isWithin(int number, int greatest)
{
    return 0 <= number && number <= greatest;
}

/// The moment that the fields name, or nothing if no calendar has it.
std::optional<seconds> momentOf(const rtc_time& fields)
{
    const year_month_day date{std::chrono::year(fields.tm_year + 1900),
                              std::chrono::month(static_cast<unsigned>(fields.tm_mon) + 1),
                              std::chrono::day(static_cast<unsigned>(fields.tm_mday))};
    if (fields.tm_year < 70 || !date.ok() || !isWithin(fields.tm_hour, 23) || !isWithin(fields.tm_min, 59) ||
        !isWithin(fields.tm_sec, 59)) {
        return std::nullopt;
    }
    return sys_days(date).time_since_epoch() + std::chrono::hours(fields.tm_hour) +
           std::chrono::minutes(fields.tm_min) + seconds(fields.tm_sec);
}

rtc_time fieldsOf(nanoseconds moment)
{
    const auto day = std::chrono::floor<days>(moment);
    const std::chrono::hh_mm_ss clock(std::chrono::floor<seconds>(moment - day));
    const sys_days date(day);
    const year_month_day calendar(date);
    rtc_time fields{};
    fields.tm_year = static_cast<int>(calendar.year()) - 1900;
    fields.tm_mon = static_cast<int>(static_cast<unsigned>(calendar.month())) - 1;
    fields.tm_mday = static_cast<int>(static_cast<unsigned>(calendar.day()));
    fields.tm_hour = static_cast<int>(clock.hours().count());
    fields.tm_min = static_cast<int>(clock.minutes().count());
    fields.tm_sec = static_cast<int>(clock.seconds().count());
    fields.tm_wday = static_cast<int>(std::chrono::weekday(date).c_encoding());
    fields.tm_yday = static_cast<int>((date - sys_days(calendar.year() / 1 / 1)).count());
    return fields;
}

} // namespace

class SimulatedDeviceFactory::HardwareClock final : public DDevIo::IDevice
{
  public:
    HardwareClock(const SimulatedDeviceFactory& factory, std::unique_ptr<DDevIo::IMutex> mutex)
        : m_factory(factory), m_mutex(std::move(mutex))
    {}

    int ioctl(int request, unsigned long argument) override
    {
        std::unique_lock<DDevIo::IMutex> lock;
        if (m_mutex) {
            lock = std::unique_lock(*m_mutex);
        }
        return m_factory.request(static_cast<unsigned>(request), argument);
    }

  private:
    const SimulatedDeviceFactory& m_factory;
    std::unique_ptr<DDevIo::IMutex> m_mutex;
};

std::unique_ptr<DDevIo::IDevice> SimulatedDeviceFactory::makeUnique32(const std::string& name,
                                                                      std::unique_ptr<DDevIo::IMutex> mutex)
{
    if (const auto code = fault("makeUnique32")) {
        errno = static_cast<int>(*code);
        return nullptr;
    }
    if (name != "rtc0") {
        errno = ENODEV;
        return nullptr;
    }
    return std::make_unique<HardwareClock>(*this, std::move(mutex));
}

int SimulatedDeviceFactory::request(unsigned number, unsigned long argument) const
{
    if (const auto code = fault("ioctl")) {
        errno = static_cast<int>(*code);
        return -1;
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr): so do requests of the kernel pass a record
    auto& fields = *reinterpret_cast<rtc_time*>(argument);
    if (number == RTC_RD_TIME) {
        fields = locked([&] { return fieldsOf(node().hardwareTime()); });
        return 0;
    }
    if (number != RTC_SET_TIME) {
        errno = ENOTTY;
        return -1;
    }
    const auto moment = momentOf(fields);
    if (!moment) {
        errno = EINVAL;
        return -1;
    }
    locked([&] { node().clocks.hardware = *moment - node().now(); });
    return 0;
}

} // namespace zyr_simulation
