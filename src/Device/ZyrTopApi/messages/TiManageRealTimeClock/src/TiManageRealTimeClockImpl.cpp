#include "TiManageRealTimeClockImpl.h"

#include "DDevIo.h"
#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "SystemTimeApi.h"
#include "ZyrApiHandler.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include <unistd.h>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiManageRealTimeClock::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr const char* kLegacyIso8601 = "%Y%m%dT%H:%M:%S";
constexpr std::size_t kLegacyIso8601Length = 17;

// The kernel's requests. Their argument is the address of its `rtc_time`: the first nine fields of a `tm`.
constexpr int kRtcSetTime = 0x4024700A;
constexpr int kRtcReadTime = static_cast<int>(0x80247009U);

constexpr int kWriteMode = 2;
constexpr int kReadMode = 4;

unsigned long addressOf(const std::tm& time)
{
    return reinterpret_cast<unsigned long>(&time);
}

// The one access to the device, which is opened, used and closed in it. Its callers tell their mode, which
// counts for nothing.
bool ddevioRtcOneshot(int /*mode*/, int request, unsigned long argument)
{
    const std::unique_ptr<DDevIo::IDevice> device = DDevIo::Factory::getInstance().makeUnique32(
        "rtc0", std::make_unique<DDevIo::PthreadMutex>(DDevIo::PthreadMutexType::Normal));
    if (device == nullptr) {
        log(trace, 1, "The Real time clock device rtc0 is not present on this system");
        return false;
    }
    if (device->ioctl(request, argument) != 0) {
        const int error = errno;
        log(trace, 1, [&](TextWriter& text) {
            text << "Failed to access the real time clock device rtc0: " << std::strerror(error);
        });
        return false;
    }
    log(trace, 5, "Successfully accessed the real time clock.");
    return true;
}

// A text of another length or without a "T" isn't parsed: its zeros are for the validation to refuse.
bool legacyIso8601ToBrokenDownTime(const std::string& text, std::tm& time)
{
    time = {};
    if (text.size() != kLegacyIso8601Length || text.find('T') == std::string::npos) {
        return true;
    }
    if (strptime(text.c_str(), kLegacyIso8601, &time) == nullptr) {
        time = {};
        log(trace, 5, [&](TextWriter& message) {
            message << "Failed to convert \"" << text << "\" (length=" << std::uint64_t{text.size()}
                    << ") to broken down time (expected format is " << kLegacyIso8601 << ")";
        });
        return false;
    }
    return true;
}

struct WidthOfTwo
{
    int number;
};

TextWriter& operator<<(TextWriter& text, WidthOfTwo field)
{
    return text << (field.number >= 0 && field.number < 10 ? " " : "") << field.number;
}

bool isWithin(int number, int least, int greatest)
{
    return least <= number && number <= greatest;
}

bool validateBrokenDownTime(const std::tm& time)
{
    // sic: year and month as the record counts them
    log(trace, 7, [&](TextWriter& text) {
        text << "Validating BrokenDownTime: YYYY-mm-dd " << time.tm_year << "-" << WidthOfTwo{time.tm_mon}
             << "-" << WidthOfTwo{time.tm_mday} << "T" << WidthOfTwo{time.tm_hour} << ":"
             << WidthOfTwo{time.tm_min} << ":" << WidthOfTwo{time.tm_sec};
    });
    return time.tm_year > 69 && isWithin(time.tm_mon, 0, 11) && isWithin(time.tm_mday, 1, 31) &&
           isWithin(time.tm_hour, 0, 23) && isWithin(time.tm_min, 0, 59) && isWithin(time.tm_sec, 0, 61);
}

std::string brokenDownTimeToLegacyIso8601(const std::tm& time)
{
    std::array<char, kLegacyIso8601Length + 1> buffer{};
    const std::size_t length = std::strftime(buffer.data(), buffer.size(), kLegacyIso8601, &time);
    if (length != kLegacyIso8601Length) {
        log(trace, 2, "Failed to convert broken down time to string.");
        return {};
    }
    return {buffer.data(), length};
}

} // namespace

void TiManageRealTimeClock::Command::print(TextWriter& text) const
{
    if (!dateTime.empty()) {
        text << "DateTime: " << dateTime;
    }
}

std::string TiManageRealTimeClock::Response::printResponse() const
{
    return printed(*this);
}

void TiManageRealTimeClock::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    if (!dateTime.empty()) {
        text << "DateTime: " << dateTime;
    }
    text << "\n";
}

ETIResult TiManageRealTimeClockImpl::initialize(int /*numberOfChannels*/)
{
    return initialiseNothing(trace);
}

TiManageRealTimeClock::Response TiManageRealTimeClockImpl::execute(const Command& command)
{
    std::tm time{};
    const bool hasHardwareClock = hasRealTimeClock();
    if (!hasHardwareClock) {
        log(trace, 3,
            "There is no Real Time Clock, so only the system time will be read and written. Changes will not "
            "survive a reboot");
    }
    if (!command.dateTime.empty()) {
        if (!legacyIso8601ToBrokenDownTime(command.dateTime, time) || !validateBrokenDownTime(time)) {
            return refusal<Response>(
                eTI_E_INVALID_ARGUMENT,
                failureText("Cannot use \"", command.dateTime, "\". Expected format is ", kLegacyIso8601));
        }
        if (hasHardwareClock) {
            log(trace, 5, [&](TextWriter& text) {
                text << "Setting real time clock from command: " << command.dateTime;
            });
            if (!writeRealTimeClock(time)) {
                return refusal<Response>(eTI_E_FAILED, "Failed to set the real time clock.");
            }
        }
        log(trace, 5,
            [&](TextWriter& text) { text << "Setting system time from command: " << command.dateTime; });
        if (!setSystemTime(time)) {
            const int error = errno;
            log(trace, 2, [&](TextWriter& text) {
                text << "Failed to set the system clock from " << command.dateTime << ": "
                     << std::strerror(error);
            });
            return refusal<Response>(eTI_E_FAILED, "Could not set the system clock.");
        }
    }
    time = {};
    if (hasHardwareClock) {
        if (!readRealTimeClock(time)) {
            return refusal<Response>(eTI_E_FAILED, "failed to read the real time clock");
        }
    } else if (!getSystemTime(time)) {
        return refusal<Response>(eTI_E_FAILED, "failed to read the system time");
    }
    Response response;
    response.dateTime = brokenDownTimeToLegacyIso8601(time);
    return response;
}

bool TiManageRealTimeClockImpl::writeRealTimeClock(const std::tm& time)
{
    log(trace, 5, "Updating RTC");
    const bool isDone = ddevioRtcOneshot(kWriteMode, kRtcSetTime, addressOf(time));
    if (isDone) {
        log(trace, 3, "Successfully set the real time clock");
    }
    return isDone;
}

bool TiManageRealTimeClockImpl::readRealTimeClock(std::tm& time)
{
    log(trace, 5, "Reading the real time clock");
    const bool isDone = ddevioRtcOneshot(kReadMode, kRtcReadTime, addressOf(time));
    if (isDone) {
        log(trace, 3, "Successfully read the real time clock");
    }
    return isDone;
}

bool TiManageRealTimeClockImpl::setSystemTime(const std::tm& time)
{
    // Copied, since the next `setenv` may take the text away.
    const char* const zone = std::getenv("TZ");
    const std::string keptZone = zone != nullptr ? zone : "";
    setenv("TZ", "UTC", 1); // so that `mktime` reads the fields as UTC
    std::tm fields = time;
    const std::time_t seconds = std::mktime(&fields);
    if (!keptZone.empty()) { // sic: a TZ that was unset or empty stays "UTC"
        setenv("TZ", keptZone.c_str(), 1);
    }
    return Util::SystemTimeApi::get().stime(&seconds) == 0;
}

bool TiManageRealTimeClockImpl::getSystemTime(std::tm& time)
{
    const std::time_t seconds = Util::SystemTimeApi::get().time();
    return gmtime_r(&seconds, &time) != nullptr;
}

bool TiManageRealTimeClockImpl::hasRealTimeClock() const
{
    return Util::SystemTimeApi::get().access("/dev/rtc", F_OK) == 0;
}

TiManageRealTimeClock::Response tiManageRealTimeClock(const TiManageRealTimeClock::Command& command)
{
    return ZyrApiHandler::executeCommand(TiManageRealTimeClockImpl(), command);
}

} // namespace zyr_top_api
