#include "ClockDoubles.h"
#include "CommandTest.h"
#include "KeptZone.h"
#include "MemorySink.h"
#include "TiManageRealTimeClockImpl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <optional>

#include <linux/rtc.h>

namespace zyr_top_api
{
namespace
{

// The device takes the address of a `tm` for that of the kernel's record.
static_assert(offsetof(std::tm, tm_sec) == offsetof(rtc_time, tm_sec));
static_assert(offsetof(std::tm, tm_min) == offsetof(rtc_time, tm_min));
static_assert(offsetof(std::tm, tm_hour) == offsetof(rtc_time, tm_hour));
static_assert(offsetof(std::tm, tm_mday) == offsetof(rtc_time, tm_mday));
static_assert(offsetof(std::tm, tm_mon) == offsetof(rtc_time, tm_mon));
static_assert(offsetof(std::tm, tm_year) == offsetof(rtc_time, tm_year));
static_assert(offsetof(std::tm, tm_wday) == offsetof(rtc_time, tm_wday));
static_assert(offsetof(std::tm, tm_yday) == offsetof(rtc_time, tm_yday));
static_assert(offsetof(std::tm, tm_isdst) == offsetof(rtc_time, tm_isdst));
static_assert(RTC_SET_TIME == 0x4024700A);
static_assert(RTC_RD_TIME == 0x80247009U);

constexpr const char* kChannel = "ZYR.TI.TiManageRealTimeClock";

std::tm fields(int year, int month, int day, int hour, int minute, int second)
{
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
}

class TiManageRealTimeClockTest : public zyr_test::CommandTest
{
  protected:
    TiManageRealTimeClockTest()
    {
        setenv("TZ", "CET", 1);
        systemTime.onTime = 1768379405; // 2026-01-14 08:30:05
        factory.read = fields(2026, 2, 3, 4, 5, 6);
    }

    void withoutHardwareClock() { systemTime.onAccess = -1; }

    static std::string zone()
    {
        const char* const text = std::getenv("TZ");
        return text != nullptr ? text : "unset";
    }

    zyr_test::KeptZone keptZone;
    zyr_test::SystemTimeDouble systemTime{transcript};
    zyr_test::DeviceFactoryDouble factory{transcript};
    zyr_platform::Replacement<Util::SystemTimeApi> systemTimeInForce{systemTime};
    zyr_platform::Replacement<DDevIo::Factory> factoryInForce{factory};
    TiManageRealTimeClockImpl impl;
};

// Setting and reading.

TEST_F(TiManageRealTimeClockTest, FrameShowsASetOfBothClocksInOrderAndTheReadBack)
{
    enrol<TiManageRealTimeClockImpl>();
    openTestGate();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.ZyrTopApi", 6);
    setTraceLevel(kChannel, 7);
    tell(tiManageRealTimeClock({"20260114T08:30:05"}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running TiManageRealTimeClock::Command
5 ZYR.COMM: TI.ManageRealTimeClock Request: DateTime: 20260114T08:30:05
system.access("/dev/rtc", 0)
7 ZYR.TI.TiManageRealTimeClock: Validating BrokenDownTime: YYYY-mm-dd 126- 0-14T 8:30: 5
5 ZYR.TI.TiManageRealTimeClock: Setting real time clock from command: 20260114T08:30:05
5 ZYR.TI.TiManageRealTimeClock: Updating RTC
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x4024700A, 126 0 14 8 30 5 3 13 0)
5 ZYR.TI.TiManageRealTimeClock: Successfully accessed the real time clock.
device gone
3 ZYR.TI.TiManageRealTimeClock: Successfully set the real time clock
5 ZYR.TI.TiManageRealTimeClock: Setting system time from command: 20260114T08:30:05
system.stime(1768379405, "CET")
5 ZYR.TI.TiManageRealTimeClock: Reading the real time clock
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x80247009, 0 0 0 0 0 0 0 0 0)
5 ZYR.TI.TiManageRealTimeClock: Successfully accessed the real time clock.
device gone
3 ZYR.TI.TiManageRealTimeClock: Successfully read the real time clock
6 ZYR.ZyrTopApi: Return TiManageRealTimeClock::Response
5 ZYR.COMM: TI.ManageRealTimeClock Response: DateTime: 20260203T04:05:06\n\n----------------------------------------------------\n
result 0x0 0 ""
prints DateTime: 20260203T04:05:06\n
)");
}

TEST_F(TiManageRealTimeClockTest, EmptyRequestHasNoTextAndOnlyReads)
{
    enrol<TiManageRealTimeClockImpl>();
    openTestGate();
    setTraceLevel("ZYR.COMM", 5);
    tell(tiManageRealTimeClock({}));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: TI.ManageRealTimeClock Request:\x20
system.access("/dev/rtc", 0)
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x80247009, 0 0 0 0 0 0 0 0 0)
device gone
3 ZYR.TI.TiManageRealTimeClock: Successfully read the real time clock
5 ZYR.COMM: TI.ManageRealTimeClock Response: DateTime: 20260203T04:05:06\n\n----------------------------------------------------\n
result 0x0 0 ""
prints DateTime: 20260203T04:05:06\n
)");
}

TEST_F(TiManageRealTimeClockTest, ClosedGateRefusesIt)
{
    enrol<TiManageRealTimeClockImpl>();
    tell(tiManageRealTimeClock({"20260114T08:30:05"}));
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.ZyrTopApi: Error: Command TI.ManageRealTimeClock not available
result 0x8003 4 "Error: Command not available"
prints tiResult: eTI_E_OPERATION_NOT_ALLOWED, faultCode: 4, faultString: Error: Command not available
)");
}

TEST_F(TiManageRealTimeClockTest, NodeWithoutAHardwareClockReadsTheSystemTimeAndSaysSo)
{
    withoutHardwareClock();
    setTraceLevel(kChannel, 7);
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
3 ZYR.TI.TiManageRealTimeClock: There is no Real Time Clock, so only the system time will be read and written. Changes will not survive a reboot
system.time()
result 0x0 0 ""
prints DateTime: 20260114T08:30:05\n
)");
}

TEST_F(TiManageRealTimeClockTest, NodeWithoutAHardwareClockSetsTheSystemTimeAlone)
{
    withoutHardwareClock();
    setTraceLevel(kChannel, 7);
    tell(impl.execute({"20270203T14:15:16"}));
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
3 ZYR.TI.TiManageRealTimeClock: There is no Real Time Clock, so only the system time will be read and written. Changes will not survive a reboot
7 ZYR.TI.TiManageRealTimeClock: Validating BrokenDownTime: YYYY-mm-dd 127- 1- 3T14:15:16
5 ZYR.TI.TiManageRealTimeClock: Setting system time from command: 20270203T14:15:16
system.stime(1801664116, "CET")
system.time()
result 0x0 0 ""
prints DateTime: 20260114T08:30:05\n
)");
}

TEST_F(TiManageRealTimeClockTest, EveryAccessMakesTheDeviceAnewAndChangesAreSeenAtOnce)
{
    EXPECT_EQ(impl.execute({}).dateTime, "20260203T04:05:06");
    factory.read.tm_sec = 7;
    EXPECT_EQ(impl.execute({}).dateTime, "20260203T04:05:07");
    withoutHardwareClock();
    EXPECT_EQ(impl.execute({}).dateTime, "20260114T08:30:05");
}

TEST_F(TiManageRealTimeClockTest, ImpossibleDayGoesRawToTheHardwareAndNormalisedToTheSystemClock)
{
    tell(impl.execute({"20260231T00:00:00"}));
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x4024700A, 126 1 31 0 0 0 2 61 0)
device gone
3 ZYR.TI.TiManageRealTimeClock: Successfully set the real time clock
system.stime(1772496000, "CET")
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x80247009, 0 0 0 0 0 0 0 0 0)
device gone
3 ZYR.TI.TiManageRealTimeClock: Successfully read the real time clock
result 0x0 0 ""
prints DateTime: 20260203T04:05:06\n
)");
}

// Texts that are refused.

TEST_F(TiManageRealTimeClockTest, TextOfAnotherLengthOrWithoutATIsValidatedAsZeros)
{
    setTraceLevel(kChannel, 7);
    for (const std::string text :
         {"20260114T08:30:0", "20260114T08:30:055", "20260114 08:30:05", "20260114t08:30:05", "T", " "}) {
        transcript.clear();
        tell(impl.execute({text}));
        EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
7 ZYR.TI.TiManageRealTimeClock: Validating BrokenDownTime: YYYY-mm-dd 0- 0- 0T 0: 0: 0
result 0xA100 2 "Cannot use ")" + text +
                                         R"(". Expected format is %Y%m%dT%H:%M:%S"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Cannot use ")" +
                                         text + R"(". Expected format is %Y%m%dT%H:%M:%S
)");
    }
}

TEST_F(TiManageRealTimeClockTest, TextThatCannotBeConvertedIsToldAndNotValidated)
{
    setTraceLevel(kChannel, 7);
    for (const std::string text : {"2026011408:30:05T", "20261314T08:30:05", "20260014T08:30:05",
                                   "20260132T08:30:05", "20260100T08:30:05", "20260114T24:30:05",
                                   "20260114T08:60:05", "20260114T08:30:62", "TTTTTTTTTTTTTTTTT"}) {
        transcript.clear();
        tell(impl.execute({text}));
        EXPECT_EQ(transcript.text(),
                  R"(
system.access("/dev/rtc", 0)
5 ZYR.TI.TiManageRealTimeClock: Failed to convert ")" +
                      text +
                      R"(" (length=17) to broken down time (expected format is %Y%m%dT%H:%M:%S)
result 0xA100 2 "Cannot use ")" +
                      text + R"(". Expected format is %Y%m%dT%H:%M:%S"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Cannot use ")" +
                      text + R"(". Expected format is %Y%m%dT%H:%M:%S
)");
    }
}

TEST_F(TiManageRealTimeClockTest, YearsFrom1970OnAreTaken)
{
    setTraceLevel(kChannel, 7);
    EXPECT_EQ(outcome(impl.execute({"19691231T23:59:59"})),
              R"(result 0xA100 2 "Cannot use "19691231T23:59:59". Expected format is %Y%m%dT%H:%M:%S")");
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
7 ZYR.TI.TiManageRealTimeClock: Validating BrokenDownTime: YYYY-mm-dd 69-11-31T23:59:59
)");
    EXPECT_EQ(impl.execute({"19700101T00:00:00"}).tiResult, 0);
    EXPECT_EQ(impl.execute({"99991231T23:59:59"}).tiResult, 0);
    transcript.clear();
    EXPECT_EQ(impl.execute({"00000101T00:00:00"}).tiResult, 0xA100);
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
7 ZYR.TI.TiManageRealTimeClock: Validating BrokenDownTime: YYYY-mm-dd -1900- 0- 1T 0: 0: 0
)");
}

TEST_F(TiManageRealTimeClockTest, SecondsUpTo61AreTaken)
{
    for (const char* const text : {"20260114T08:30:60", "20260114T08:30:61"}) {
        EXPECT_EQ(impl.execute({text}).tiResult, 0) << text;
    }
    EXPECT_EQ(impl.execute({"20260114T08:30:62"}).tiResult, 0xA100);
}

TEST_F(TiManageRealTimeClockTest, BytesThatTheConversionLeavesOverAreIgnored)
{
    setTraceLevel(kChannel, 7);
    EXPECT_EQ(impl.execute({"2026014T08:30:005"}).tiResult, 0);
    EXPECT_EQ(transcript.lines()[1],
              "7 ZYR.TI.TiManageRealTimeClock: Validating BrokenDownTime: YYYY-mm-dd 126- 0- 4T 8:30: 0");
}

TEST_F(TiManageRealTimeClockTest, MissingHardwareClockIsToldBeforeATextIsRefused)
{
    withoutHardwareClock();
    impl.execute({"now"});
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
3 ZYR.TI.TiManageRealTimeClock: There is no Real Time Clock, so only the system time will be read and written. Changes will not survive a reboot
)");
}

// Clocks that fail.

TEST_F(TiManageRealTimeClockTest, HardwareClockThatCannotBeSetLeavesTheSystemClockAlone)
{
    setTraceLevel(kChannel, 5);
    factory.onSet = -1;
    factory.errorOfIoctl = EACCES;
    tell(impl.execute({"20260114T08:30:05"}));
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
5 ZYR.TI.TiManageRealTimeClock: Setting real time clock from command: 20260114T08:30:05
5 ZYR.TI.TiManageRealTimeClock: Updating RTC
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x4024700A, 126 0 14 8 30 5 3 13 0)
1 ZYR.TI.TiManageRealTimeClock: Failed to access the real time clock device rtc0: Permission denied
device gone
result 0x8000 4 "Failed to set the real time clock."
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to set the real time clock.
)");
}

TEST_F(TiManageRealTimeClockTest, AnyAnswerOfTheDeviceBut0IsAFailure)
{
    for (const int answer : {-1, 1, 0x8000, std::numeric_limits<int>::min()}) {
        factory.onRead = answer;
        EXPECT_EQ(impl.execute({}).tiResult, 0x8000) << answer;
    }
}

TEST_F(TiManageRealTimeClockTest, SystemClockThatCannotBeSetLeavesTheHardwareClockChanged)
{
    setTraceLevel(kChannel, 5);
    systemTime.onStime = -1;
    systemTime.errorOfStime = EPERM;
    tell(impl.execute({"20260114T08:30:05"}));
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
5 ZYR.TI.TiManageRealTimeClock: Setting real time clock from command: 20260114T08:30:05
5 ZYR.TI.TiManageRealTimeClock: Updating RTC
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x4024700A, 126 0 14 8 30 5 3 13 0)
5 ZYR.TI.TiManageRealTimeClock: Successfully accessed the real time clock.
device gone
3 ZYR.TI.TiManageRealTimeClock: Successfully set the real time clock
5 ZYR.TI.TiManageRealTimeClock: Setting system time from command: 20260114T08:30:05
system.stime(1768379405, "CET")
2 ZYR.TI.TiManageRealTimeClock: Failed to set the system clock from 20260114T08:30:05: Operation not permitted
result 0x8000 4 "Could not set the system clock."
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Could not set the system clock.
)");
}

TEST_F(TiManageRealTimeClockTest, AnyAnswerOfStimeBut0IsAFailure)
{
    withoutHardwareClock();
    systemTime.onStime = 1;
    EXPECT_EQ(outcome(impl.execute({"20260114T08:30:05"})),
              "result 0x8000 4 \"Could not set the system clock.\"");
}

TEST_F(TiManageRealTimeClockTest, HardwareClockThatCannotBeReadFailsAlsoBehindASet)
{
    factory.onRead = -1;
    factory.errorOfIoctl = EINVAL;
    const auto response = tell(impl.execute({"20260114T08:30:05"}));
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x4024700A, 126 0 14 8 30 5 3 13 0)
device gone
3 ZYR.TI.TiManageRealTimeClock: Successfully set the real time clock
system.stime(1768379405, "CET")
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x80247009, 0 0 0 0 0 0 0 0 0)
1 ZYR.TI.TiManageRealTimeClock: Failed to access the real time clock device rtc0: Invalid argument
device gone
result 0x8000 4 "failed to read the real time clock"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: failed to read the real time clock
)");
    EXPECT_EQ(response.dateTime, "");
}

TEST_F(TiManageRealTimeClockTest, DeviceThatTheFactoryDoesNotHaveFailsReadAndSet)
{
    setTraceLevel(kChannel, 5);
    factory.isPresent = false;
    tell(impl.execute({}));
    tell(impl.execute({"20260114T08:30:05"}));
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
5 ZYR.TI.TiManageRealTimeClock: Reading the real time clock
factory.makeUnique32("rtc0", "PthreadMutex")
1 ZYR.TI.TiManageRealTimeClock: The Real time clock device rtc0 is not present on this system
result 0x8000 4 "failed to read the real time clock"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: failed to read the real time clock
system.access("/dev/rtc", 0)
5 ZYR.TI.TiManageRealTimeClock: Setting real time clock from command: 20260114T08:30:05
5 ZYR.TI.TiManageRealTimeClock: Updating RTC
factory.makeUnique32("rtc0", "PthreadMutex")
1 ZYR.TI.TiManageRealTimeClock: The Real time clock device rtc0 is not present on this system
result 0x8000 4 "Failed to set the real time clock."
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to set the real time clock.
)");
}

TEST_F(TiManageRealTimeClockTest, SystemTimeBeyondAllYearsCannotBeRead)
{
    if (sizeof(std::time_t) == 4) {
        GTEST_SKIP() << "a time of four bytes ends in the year 2038";
    }
    withoutHardwareClock();
    systemTime.onTime = std::numeric_limits<std::time_t>::max();
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
3 ZYR.TI.TiManageRealTimeClock: There is no Real Time Clock, so only the system time will be read and written. Changes will not survive a reboot
system.time()
result 0x8000 4 "failed to read the system time"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: failed to read the system time
)");
}

TEST_F(TiManageRealTimeClockTest, TimeThatDoesNotFitItsFormSucceedsWithAnEmptyText)
{
    factory.read = fields(10000, 1, 1, 0, 0, 0);
    tell(impl.execute({}));
    factory.read = fields(9999, 12, 31, 23, 59, 59);
    EXPECT_EQ(impl.execute({}).dateTime, "99991231T23:59:59");
    factory.read = fields(999, 1, 1, 0, 0, 0);
    EXPECT_EQ(impl.execute({}).dateTime, "");
    EXPECT_EQ(transcript.text(), R"(
system.access("/dev/rtc", 0)
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x80247009, 0 0 0 0 0 0 0 0 0)
device gone
3 ZYR.TI.TiManageRealTimeClock: Successfully read the real time clock
2 ZYR.TI.TiManageRealTimeClock: Failed to convert broken down time to string.
result 0x0 0 ""
prints \n
system.access("/dev/rtc", 0)
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x80247009, 0 0 0 0 0 0 0 0 0)
device gone
3 ZYR.TI.TiManageRealTimeClock: Successfully read the real time clock
system.access("/dev/rtc", 0)
factory.makeUnique32("rtc0", "PthreadMutex")
ioctl(0x80247009, 0 0 0 0 0 0 0 0 0)
device gone
3 ZYR.TI.TiManageRealTimeClock: Successfully read the real time clock
2 ZYR.TI.TiManageRealTimeClock: Failed to convert broken down time to string.
)");
}

// The time zone of the process.

TEST_F(TiManageRealTimeClockTest, ZoneThatWasSetComesBack)
{
    impl.execute({"20260714T08:30:05"});
    EXPECT_EQ(zone(), "CET");
    EXPECT_NE(transcript.text().find("system.stime(1784017805, \"CET\")"), std::string::npos)
        << transcript.text();
}

TEST_F(TiManageRealTimeClockTest, ZoneThatWasSetComesBackAlsoWhenTheClockCannotBeSet)
{
    systemTime.onStime = -1;
    impl.execute({"20260714T08:30:05"});
    EXPECT_EQ(zone(), "CET");
}

TEST_F(TiManageRealTimeClockTest, ZoneThatWasUnsetOrEmptyStaysUtc)
{
    unsetenv("TZ");
    EXPECT_EQ(impl.execute({"20260714T08:30:05"}).tiResult, 0);
    EXPECT_EQ(zone(), "UTC");
    setenv("TZ", "", 1);
    EXPECT_EQ(impl.execute({"20260714T08:30:05"}).tiResult, 0);
    EXPECT_EQ(zone(), "UTC");
}

TEST_F(TiManageRealTimeClockTest, ReadsAndRefusedTextsLeaveTheZoneAlone)
{
    unsetenv("TZ");
    impl.execute({});
    impl.execute({"20260714T08:30"});
    factory.onSet = -1;
    impl.execute({"20260714T08:30:05"});
    EXPECT_EQ(zone(), "unset");
}

TEST_F(TiManageRealTimeClockTest, TimesAreUtcWhateverTheZone)
{
    withoutHardwareClock();
    for (const char* const name : {"UTC", "CET", "EST5EDT", "<+14>-14"}) {
        setenv("TZ", name, 1);
        tzset();
        transcript.clear();
        EXPECT_EQ(impl.execute({"20260114T08:30:05"}).dateTime, "20260114T08:30:05") << name;
        EXPECT_NE(transcript.text().find("system.stime(1768379405, "), std::string::npos) << name;
        EXPECT_EQ(zone(), name);
    }
}

// The hardware replaced.

class ReplacedHardware : public TiManageRealTimeClockImpl
{
  public:
    explicit ReplacedHardware(zyr_test::Transcript& transcript) : m_transcript(transcript) {}

    bool writeRealTimeClock(const std::tm& time) override
    {
        m_transcript.add("write " + zyr_test::fieldsOf(time));
        return writes;
    }
    bool readRealTimeClock(std::tm& time) override
    {
        m_transcript.add("read into " + zyr_test::fieldsOf(time));
        time = fields(2001, 2, 3, 4, 5, 6);
        return reads;
    }
    bool setSystemTime(const std::tm& time) override
    {
        m_transcript.add("set " + zyr_test::fieldsOf(time));
        return sets;
    }
    bool getSystemTime(std::tm& time) override
    {
        m_transcript.add("get into " + zyr_test::fieldsOf(time));
        time = fields(2007, 8, 9, 10, 11, 12);
        return gets;
    }
    bool hasRealTimeClock() const override
    {
        m_transcript.add("has");
        return has.next();
    }

    bool writes = true;
    bool reads = true;
    bool sets = true;
    bool gets = true;
    mutable zyr_test::Answer<bool> has{true};

  private:
    zyr_test::Transcript& m_transcript;
};

TEST_F(TiManageRealTimeClockTest, HardwareIsAskedForOnceARunWhateverItWouldAnswerLater)
{
    ReplacedHardware replaced(transcript);
    replaced.has.inTurn({true, false});
    EXPECT_EQ(replaced.execute({"20260114T08:30:05"}).dateTime, "20010203T04:05:06");
    EXPECT_EQ(replaced.execute({"20260114T08:30:05"}).dateTime, "20070809T10:11:12");
    EXPECT_EQ(transcript.text(), R"(
has
write 126 0 14 8 30 5 3 13 0
set 126 0 14 8 30 5 3 13 0
read into 0 0 0 0 0 0 0 0 0
has
3 ZYR.TI.TiManageRealTimeClock: There is no Real Time Clock, so only the system time will be read and written. Changes will not survive a reboot
set 126 0 14 8 30 5 3 13 0
get into 0 0 0 0 0 0 0 0 0
)");
}

TEST_F(TiManageRealTimeClockTest, FirstOfSeveralFailuresAnswers)
{
    ReplacedHardware replaced(transcript);
    replaced.sets = false;
    replaced.reads = false;
    replaced.gets = false;
    replaced.writes = false;
    EXPECT_EQ(replaced.execute({"20260114"}).faultString,
              "Cannot use \"20260114\". Expected format is %Y%m%dT%H:%M:%S");
    EXPECT_EQ(replaced.execute({"20260114T08:30:05"}).faultString, "Failed to set the real time clock.");
    replaced.writes = true;
    EXPECT_EQ(replaced.execute({"20260114T08:30:05"}).faultString, "Could not set the system clock.");
    replaced.sets = true;
    EXPECT_EQ(replaced.execute({"20260114T08:30:05"}).faultString, "failed to read the real time clock");
    replaced.has = false;
    EXPECT_EQ(replaced.execute({"20260114T08:30:05"}).faultString, "failed to read the system time");
}

// All texts of a small grammar, against a parser of this test's own.

// Reads a number of at most so many digits from `least` to `greatest`, as the C library does: blanks before
// it are skipped, and it ends early where a further digit would take it out of range.
std::optional<int> takeNumber(std::string_view& text, int digits, int least, int greatest)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    int number = 0;
    int taken = 0;
    while (taken < digits && !text.empty() && '0' <= text[0] && text[0] <= '9' &&
           (taken == 0 || number * 10 <= greatest)) {
        number = number * 10 + (text[0] - '0');
        text.remove_prefix(1);
        ++taken;
    }
    return taken > 0 && least <= number && number <= greatest ? std::optional(number) : std::nullopt;
}

bool takeByte(std::string_view& text, char byte)
{
    const bool isThere = !text.empty() && text[0] == byte;
    text.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

// The fields of a text that can be used: year, month, day, hour, minute, second, as people count them.
std::optional<std::array<int, 6>> usableFields(std::string_view text)
{
    const auto year = takeNumber(text, 4, 0, 9999);
    const auto month = takeNumber(text, 2, 1, 12);
    const auto day = takeNumber(text, 2, 1, 31);
    const bool hasT = takeByte(text, 'T');
    const auto hour = takeNumber(text, 2, 0, 23);
    const bool hasColon = takeByte(text, ':');
    const auto minute = takeNumber(text, 2, 0, 59);
    const bool hasSecondColon = takeByte(text, ':');
    const auto second = takeNumber(text, 2, 0, 61);
    if (!year || !month || !day || !hasT || !hour || !hasColon || !minute || !hasSecondColon || !second ||
        *year < 1970) {
        return std::nullopt;
    }
    return {{*year, *month, *day, *hour, *minute, *second}};
}

class Grammar
{
  public:
    void expect(const std::string& text)
    {
        ASSERT_EQ(text.size(), 17U);
        m_transcript.clear();
        const auto response = m_clock.execute({text});
        const auto usable = usableFields(text);
        ++(usable ? accepted : refused);
        ASSERT_EQ(response.tiResult == 0, usable.has_value()) << zyr_test::escaped(text);
        const auto lines = m_transcript.lines();
        if (!usable) {
            EXPECT_EQ(response.faultString,
                      "Cannot use \"" + text + "\". Expected format is %Y%m%dT%H:%M:%S");
            EXPECT_EQ(lines, std::vector<std::string>{"has"}) << zyr_test::escaped(text);
            return;
        }
        const auto& [year, month, day, hour, minute, second] = *usable;
        const std::string expected = std::to_string(year - 1900) + " " + std::to_string(month - 1) + " " +
                                     std::to_string(day) + " " + std::to_string(hour) + " " +
                                     std::to_string(minute) + " " + std::to_string(second) + " ";
        ASSERT_EQ(lines.size(), 4U) << text;
        EXPECT_EQ(lines[1].substr(0, expected.size() + 6), "write " + expected) << zyr_test::escaped(text);
        EXPECT_EQ(lines[2].substr(0, expected.size() + 4), "set " + expected) << zyr_test::escaped(text);
    }

    int accepted = 0;
    int refused = 0;

  private:
    zyr_test::Transcript m_transcript;
    ReplacedHardware m_clock{m_transcript};
};

TEST_F(TiManageRealTimeClockTest, TextsWithFieldsAtAndBeyondTheirEndsAreTakenAsAnIndependentParserTakesThem)
{
    Grammar grammar;
    for (const char* const year : {"0000", "1900", "1969", "1970", "2026", "9999"}) {
        for (const char* const month : {"00", "01", "02", "12", "13", "99"}) {
            for (const char* const day : {"00", "01", "29", "31", "32", "99"}) {
                for (const char* const hour : {"00", "23", "24", "99"}) {
                    for (const char* const minute : {"00", "59", "60", "99"}) {
                        for (const char* const second : {"00", "59", "60", "61", "62", "69", "70", "99"}) {
                            grammar.expect(std::string(year) + month + day + "T" + hour + ":" + minute + ":" +
                                           second);
                        }
                    }
                }
            }
        }
    }
    EXPECT_EQ(grammar.accepted + grammar.refused, 27648);
    EXPECT_GT(grammar.accepted, 0);
    EXPECT_GT(grammar.refused, 0);
}

TEST_F(TiManageRealTimeClockTest, TextsWithOneByteWrongAreTakenAsAnIndependentParserTakesThem)
{
    Grammar grammar;
    for (const std::string valid :
         {"20260114T08:30:05", "19700101T00:00:00", "99991231T23:59:61", "20261111T11:11:11"}) {
        for (std::size_t place = 0; place < valid.size(); ++place) {
            for (int byte = 0; byte < 256; ++byte) {
                // Whether other white space than blanks is skipped is the C library's affair.
                if ('\t' <= byte && byte <= '\r') {
                    continue;
                }
                std::string text = valid;
                text[place] = static_cast<char>(byte);
                grammar.expect(text);
            }
        }
    }
    EXPECT_EQ(grammar.accepted + grammar.refused, 4 * 17 * 251);
    EXPECT_GT(grammar.accepted, 0);
    EXPECT_GT(grammar.refused, 0);
}

// The rest.

TEST_F(TiManageRealTimeClockTest, InitialiseTakesAnyCountAndTracesNothing)
{
    setTraceLevel(kChannel, 7);
    for (const int count : {0, 1, 2, 3, -1}) {
        EXPECT_EQ(impl.initialize(count), 0);
    }
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiManageRealTimeClockTest, RecordsNameTheSourceOfTheCommandAndTheirFunctions)
{
    setTraceLevel(kChannel, 7);
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const auto registration = zyr_platform::TraceService::get().addSink(sink);
    factory.read = fields(10000, 1, 1, 0, 0, 0);
    impl.execute({"20260114T08:30:05"});
    impl.execute({"TTTTTTTTTTTTTTTTT"});
    factory.isPresent = false;
    impl.execute({});
    factory.isPresent = true;
    factory.onRead = -1;
    impl.execute({});
    systemTime.onStime = -1;
    impl.execute({"20260114T08:30:05"});
    withoutHardwareClock();
    impl.execute({});
    std::string functions;
    for (const auto& record : sink->records()) {
        EXPECT_STREQ(record.header.file, "src/Device/ZyrTopApi/messages/TiManageRealTimeClock/src/"
                                         "TiManageRealTimeClockImpl.cpp");
        functions += std::to_string(record.level) + " " + record.header.function + "\n";
    }
    EXPECT_EQ(functions, R"(7 validateBrokenDownTime
5 execute
5 writeRealTimeClock
5 ddevioRtcOneshot
3 writeRealTimeClock
5 execute
5 readRealTimeClock
5 ddevioRtcOneshot
3 readRealTimeClock
2 brokenDownTimeToLegacyIso8601
5 legacyIso8601ToBrokenDownTime
5 readRealTimeClock
1 ddevioRtcOneshot
5 readRealTimeClock
1 ddevioRtcOneshot
7 validateBrokenDownTime
5 execute
5 writeRealTimeClock
5 ddevioRtcOneshot
3 writeRealTimeClock
5 execute
2 execute
3 execute
)");
}

} // namespace
} // namespace zyr_top_api
