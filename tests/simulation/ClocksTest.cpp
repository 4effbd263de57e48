#include "DDevIo.h"
#include "MemorySink.h"
#include "SimulationFixture.h"
#include "SystemTimeApi.h"
#include "TraceService.h"
#include "TylTrace.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <vector>

#include <linux/rtc.h>
#include <unistd.h>

namespace
{

using namespace std::chrono_literals;

constexpr std::time_t kMoment = 1768379405; // 2026-01-14 08:30:05, a Wednesday

class ClocksTest : public SimulationFixture
{
  protected:
    static Util::SystemTimeApi& system() { return Util::SystemTimeApi::get(); }

    static int request(unsigned number, rtc_time& fields)
    {
        const auto device = DDevIo::Factory::getInstance().makeUnique32(
            "rtc0", std::make_unique<DDevIo::PthreadMutex>(DDevIo::PthreadMutexType::Normal));
        return device == nullptr
                   ? -2
                   : device->ioctl(static_cast<int>(number), reinterpret_cast<unsigned long>(&fields));
    }

    static std::array<int, 9> hardware()
    {
        rtc_time fields{};
        EXPECT_EQ(request(RTC_RD_TIME, fields), 0);
        return {fields.tm_year, fields.tm_mon,  fields.tm_mday, fields.tm_hour, fields.tm_min,
                fields.tm_sec,  fields.tm_wday, fields.tm_yday, fields.tm_isdst};
    }

    static int setHardware(int year, int month, int day, int hour, int minute, int second)
    {
        rtc_time fields{second, minute, hour, day, month, year, 0, 0, 0};
        errno = 0;
        return request(RTC_SET_TIME, fields);
    }
};

TEST_F(ClocksTest, NodesClocksStartAsTheHosts)
{
    // Not `time`, whose clock ticks behind the others.
    const auto hostsTime = [] {
        return std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    };
    const std::time_t before = hostsTime();
    startNode();
    const std::time_t now = system().time();
    EXPECT_LE(before, now);
    EXPECT_LE(now, hostsTime());
    std::tm fields{};
    gmtime_r(&now, &fields);
    EXPECT_EQ(hardware()[0], fields.tm_year);
    EXPECT_EQ(hardware()[7], fields.tm_yday);
}

TEST_F(ClocksTest, SystemClockRunsOnFromWhereItWasSetAndLeavesTheOthersAlone)
{
    ASSERT_EQ(setHardware(101, 1, 3, 4, 5, 6), 0);
    ASSERT_EQ(system().stime(&kMoment), 0);
    EXPECT_EQ(system().time(), kMoment);
    time().advance(999ms);
    EXPECT_EQ(system().time(), kMoment);
    time().advance(1ms);
    EXPECT_EQ(system().time(), kMoment + 1);
    EXPECT_EQ(hardware(), (std::array{101, 1, 3, 4, 5, 7, 6, 33, 0}));
    EXPECT_LT(kMoment, std::time(nullptr)); // the host's goes on
}

TEST_F(ClocksTest, HardwareClockRunsOnFromWhereItWasSet)
{
    ASSERT_EQ(setHardware(124, 1, 28, 23, 59, 59), 0);
    time().advance(1s);
    EXPECT_EQ(hardware(), (std::array{124, 1, 29, 0, 0, 0, 4, 59, 0}));
    ASSERT_EQ(setHardware(124, 1, 29, 23, 59, 58), 0);
    time().advance(2s);
    EXPECT_EQ(hardware(), (std::array{124, 2, 1, 0, 0, 0, 5, 60, 0}));
}

TEST_F(ClocksTest, HardwareClockRefusesATimeThatNoCalendarHas)
{
    ASSERT_EQ(setHardware(126, 0, 14, 8, 30, 5), 0);
    const int wrong[][6]{{69, 11, 31, 23, 59, 59}, {126, -1, 1, 0, 0, 0}, {126, 12, 1, 0, 0, 0},
                         {126, 1, 29, 0, 0, 0},    {126, 0, 0, 0, 0, 0},  {126, 0, 1, 24, 0, 0},
                         {126, 0, 1, 0, 60, 0},    {126, 0, 1, 0, 0, 60}, {126, 0, 1, -1, 0, 0}};
    for (const auto& [year, month, day, hour, minute, second] : wrong) {
        EXPECT_EQ(setHardware(year, month, day, hour, minute, second), -1)
            << year << " " << month << " " << day;
        EXPECT_EQ(errno, EINVAL);
    }
    EXPECT_EQ(hardware(), (std::array{126, 0, 14, 8, 30, 5, 3, 13, 0}));
    EXPECT_EQ(setHardware(70, 0, 1, 0, 0, 0), 0);
    EXPECT_EQ(setHardware(124, 1, 29, 23, 59, 59), 0);
}

TEST_F(ClocksTest, DeviceAnswersNoOtherRequest)
{
    rtc_time fields{};
    errno = 0;
    EXPECT_EQ(request(RTC_AIE_ON, fields), -1);
    EXPECT_EQ(errno, ENOTTY);
}

TEST_F(ClocksTest, NodeHasNoOtherDevices)
{
    EXPECT_EQ(system().access("/dev/rtc", F_OK), 0);
    errno = 0;
    EXPECT_EQ(system().access("/dev/null", F_OK), -1);
    EXPECT_EQ(errno, ENOENT);
    errno = 0;
    EXPECT_EQ(DDevIo::Factory::getInstance().makeUnique32("null", nullptr), nullptr);
    EXPECT_EQ(errno, ENODEV);
}

TEST_F(ClocksTest, OrdersToFailGiveTheReason)
{
    node().faults().inject({"SystemTimeApi", "access", 0, EACCES, 1});
    EXPECT_EQ(system().access("/dev/rtc", F_OK), -1);
    EXPECT_EQ(errno, EACCES);
    EXPECT_EQ(system().access("/dev/rtc", F_OK), 0);
    const std::time_t before = system().time();
    node().faults().inject({"SystemTimeApi", "stime", 0, EPERM, 1});
    EXPECT_EQ(system().stime(&kMoment), -1);
    EXPECT_EQ(errno, EPERM);
    EXPECT_EQ(system().time(), before);
    node().faults().inject({"DDevIo", "makeUnique32", 0, ENXIO, 1});
    EXPECT_EQ(setHardware(126, 0, 14, 8, 30, 5), -2);
    EXPECT_EQ(errno, ENXIO);
    node().faults().inject({"DDevIo", "ioctl", 0, EIO, 1});
    EXPECT_EQ(setHardware(126, 0, 14, 8, 30, 5), -1);
    EXPECT_EQ(errno, EIO);
    EXPECT_EQ(setHardware(126, 0, 14, 8, 30, 5), 0);
}

TEST_F(ClocksTest, StampsOfTheTraceFollowTheSystemClockUntilTheNodeGoes)
{
    static constinit TylTrace trace("ZYR.ClocksTest", 3, TylTraceHdrOption_Default);
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const auto registration = zyr_platform::TraceService::get().addSink(sink);
    const auto stamp = [&] {
        trace.logMsg(1, {"file", 1, "function"}, "text");
        return std::chrono::system_clock::to_time_t(sink->records().back().time);
    };
    ASSERT_EQ(system().stime(&kMoment), 0);
    const std::time_t inNode = stamp();
    EXPECT_LE(kMoment, inNode);
    EXPECT_LE(inNode, kMoment + 60);
    endNode();
    const std::time_t before = std::time(nullptr);
    EXPECT_LE(before, stamp());
}

TEST_F(ClocksTest, TimesOfAlarmsFollowTheSystemClockAndStayWhenItIsSet)
{
    const auto changedAt = [&] {
        std::vector<std::time_t> times;
        for (const auto& alarm : node().snapshot().alarms) {
            times.push_back(std::chrono::floor<std::chrono::seconds>(alarm.changedAt).count());
        }
        return times;
    };
    using Times = std::vector<std::time_t>;
    ASSERT_EQ(system().stime(&kMoment), 0);
    EXPECT_EQ(acm(1).enableAcm(false), 0U);
    EXPECT_EQ(changedAt(), (Times{kMoment}));
    time().advance(10s);
    EXPECT_EQ(acm(1).enableAcm(false), 0U);
    EXPECT_EQ(changedAt(), (Times{kMoment})) << "it was raised already";
    EXPECT_EQ(acm(2).enableAcm(false), 0U);
    EXPECT_EQ(changedAt(), (Times{kMoment, kMoment + 10}));
    const std::time_t later = kMoment + 86400;
    ASSERT_EQ(system().stime(&later), 0);
    EXPECT_EQ(changedAt(), (Times{kMoment, kMoment + 10}));
    EXPECT_EQ(acm(1).enableAcm(true), 0U);
    EXPECT_EQ(changedAt(), (Times{later, kMoment + 10}));
}

TEST_F(ClocksTest, SnapshotShowsBothClocks)
{
    ASSERT_EQ(setHardware(101, 1, 3, 4, 5, 6), 0);
    ASSERT_EQ(system().stime(&kMoment), 0);
    time().advance(2s);
    const auto snapshot = node().snapshot();
    EXPECT_EQ(snapshot.systemTime, std::chrono::seconds(kMoment + 2));
    EXPECT_EQ(snapshot.hardwareTime, std::chrono::seconds(981173108)); // 2001-02-03 04:05:08
}

TEST_F(ClocksTest, NodeWithTheHostsClocksStampsAlarmsWithTheHostsTime)
{
    startNode({.hostClock = true});
    const auto before = std::chrono::system_clock::now().time_since_epoch();
    time().advance(1h);
    EXPECT_EQ(acm(1).enableAcm(false), 0U);
    const auto changedAt = node().snapshot().alarms.front().changedAt;
    EXPECT_LE(before, changedAt);
    EXPECT_LE(changedAt, std::chrono::system_clock::now().time_since_epoch());
}

TEST_F(ClocksTest, NodeThatWasGivenTheHostsClocksHasThemAndEveryNodeGivesThemBack)
{
    endNode();
    const Util::SystemTimeApi* const hosts = &system();
    const DDevIo::Factory* const hostsDevices = &DDevIo::Factory::getInstance();
    zyr_simulation::SimulatedNodeOptions options;
    options.hostClock = true;
    startNode(options);
    EXPECT_EQ(&system(), hosts);
    EXPECT_EQ(&DDevIo::Factory::getInstance(), hostsDevices);
    startNode();
    EXPECT_NE(&system(), hosts);
    EXPECT_NE(&DDevIo::Factory::getInstance(), hostsDevices);
    endNode();
    EXPECT_EQ(&system(), hosts);
    EXPECT_EQ(&DDevIo::Factory::getInstance(), hostsDevices);
}

} // namespace
