#include "VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <optional>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using std::chrono::nanoseconds;
using testing::ElementsAre;
using zyr_platform::Registration;
using zyr_platform::TimeSource;
using zyr_platform::VirtualTime;

class VirtualTimeTest : public testing::Test
{
  protected:
    std::function<void()> note(const std::string& name)
    {
        return [this, name] { events.push_back(name + "@" + std::to_string(time.now() / 1ms)); };
    }

    VirtualTime time;
    std::vector<std::string> events;
};

TEST_F(VirtualTimeTest, startsAtZeroAndStandsStill)
{
    EXPECT_EQ(time.now(), 0ns);
    EXPECT_EQ(time.now(), 0ns);
}

TEST_F(VirtualTimeTest, isTheSleeperAndTheClockInForce)
{
    Util::DefaultSleepApi::get().sleep(100);
    EXPECT_EQ(Util::SteadyClockApi::get().now(), 100ms);
    EXPECT_EQ(time.now(), 100ms);
    Util::DefaultSleepApi::get().sleep(0);
    EXPECT_EQ(time.now(), 100ms);
    EXPECT_THAT(time.sleeps(), ElementsAre(100ms, 0ms));
}

TEST_F(VirtualTimeTest, longestSleepPassesAtOnce)
{
    Util::DefaultSleepApi::get().sleep(std::numeric_limits<std::uint32_t>::max());
    EXPECT_EQ(time.now(), 4294967295ms);
}

TEST_F(VirtualTimeTest, innerVirtualTimeGivesWayToTheOuterOne)
{
    {
        VirtualTime inner;
        Util::DefaultSleepApi::get().sleep(5);
        EXPECT_EQ(inner.now(), 5ms);
    }
    EXPECT_EQ(time.now(), 0ms);
    Util::DefaultSleepApi::get().sleep(7);
    EXPECT_EQ(time.now(), 7ms);
}

TEST_F(VirtualTimeTest, timersRunInTheOrderOfTimeThenOfScheduling)
{
    time.schedule(20ms, note("c"));
    time.schedule(10ms, note("a"));
    time.schedule(20ms, note("d"));
    time.schedule(10ms, note("b"));
    time.schedule(31ms, note("late"));
    time.advance(30ms);
    EXPECT_THAT(events, ElementsAre("a@10", "b@10", "c@20", "d@20"));
    EXPECT_EQ(time.now(), 30ms);
    time.advance(1ms);
    EXPECT_THAT(events, ElementsAre("a@10", "b@10", "c@20", "d@20", "late@31"));
}

TEST_F(VirtualTimeTest, sleepRunsTheTimersOnItsWay)
{
    time.schedule(50ms, note("a"));
    Util::DefaultSleepApi::get().sleep(100);
    EXPECT_THAT(events, ElementsAre("a@50"));
    EXPECT_EQ(time.now(), 100ms);
}

TEST_F(VirtualTimeTest, timerWithoutDelayRunsInTheNextAdvanceOfNothing)
{
    time.schedule(0ms, note("now"));
    time.schedule(-5ms, note("past"));
    EXPECT_THAT(events, ElementsAre());
    time.advance(0ms);
    EXPECT_THAT(events, ElementsAre("now@0", "past@0"));
}

TEST_F(VirtualTimeTest, timersMayScheduleFurtherOnesInTheSameAdvance)
{
    time.schedule(10ms, [&] {
        note("first")();
        time.schedule(0ms, note("at once"));
        time.schedule(10ms, note("second"));
        time.schedule(100ms, note("too late"));
    });
    time.advance(50ms);
    EXPECT_THAT(events, ElementsAre("first@10", "at once@10", "second@20"));
}

TEST_F(VirtualTimeTest, cancelledTimerDoesNotRun)
{
    const TimeSource::TimerId first = time.schedule(10ms, note("a"));
    const TimeSource::TimerId second = time.schedule(10ms, note("b"));
    EXPECT_NE(first, 0U);
    EXPECT_NE(first, second);
    EXPECT_TRUE(time.cancel(first));
    EXPECT_FALSE(time.cancel(first));
    EXPECT_FALSE(time.cancel(0));
    time.advance(10ms);
    EXPECT_THAT(events, ElementsAre("b@10"));
    EXPECT_FALSE(time.cancel(second));
}

TEST_F(VirtualTimeTest, runningTimerCannotBeCancelledButALaterOneCan)
{
    std::optional<bool> own;
    std::optional<bool> other;
    TimeSource::TimerId running = 0;
    running = time.schedule(10ms, [&] { own = time.cancel(running); });
    const TimeSource::TimerId next = time.schedule(10ms, note("next"));
    time.schedule(5ms, [&] { other = time.cancel(next); });
    time.advance(10ms);
    EXPECT_EQ(own, false);
    EXPECT_EQ(other, true);
    EXPECT_THAT(events, ElementsAre());
}

TEST_F(VirtualTimeTest, timerThatSleepsDelaysThoseBehindIt)
{
    time.schedule(10ms, [&] {
        Util::DefaultSleepApi::get().sleep(100);
        note("slept")();
    });
    time.schedule(20ms, note("behind"));
    time.schedule(50ms, note("beyond the advance"));
    time.advance(30ms);
    EXPECT_THAT(events, ElementsAre("slept@110", "behind@110", "beyond the advance@110"));
    EXPECT_EQ(time.now(), 110ms);
}

TEST_F(VirtualTimeTest, observersAreToldEveryTimeThatTheClockShows)
{
    std::vector<nanoseconds> seen;
    time.schedule(10ms, note("a"));
    time.schedule(10ms, note("b"));
    auto observing = time.onAdvance([&](nanoseconds now) {
        seen.push_back(now);
        note("seen")();
    });
    time.advance(0ms);
    time.advance(25ms);
    EXPECT_THAT(seen, ElementsAre(10ms, 25ms));
    EXPECT_THAT(events, ElementsAre("seen@10", "a@10", "b@10", "seen@25"));
    observing.withdraw();
    time.advance(5ms);
    EXPECT_THAT(seen, ElementsAre(10ms, 25ms));
}

TEST_F(VirtualTimeTest, observerMayScheduleAndWithdrawOthers)
{
    std::optional<Registration> second;
    const auto first = time.onAdvance([&](nanoseconds) {
        second.reset();
        time.schedule(0ms, note("scheduled"));
    });
    second = time.onAdvance([&](nanoseconds) { note("withdrawn")(); });
    time.advance(10ms);
    EXPECT_THAT(events, ElementsAre("scheduled@10"));
}

TEST_F(VirtualTimeTest, exceptionOfATimerLeavesAndTimeGoesOnAfterwards)
{
    time.schedule(10ms, [] { throw std::runtime_error("x"); });
    time.schedule(20ms, note("b"));
    EXPECT_THROW(time.advance(30ms), std::runtime_error);
    EXPECT_EQ(time.now(), 10ms);
    time.advance(20ms);
    EXPECT_THAT(events, ElementsAre("b@20"));
}

TEST_F(VirtualTimeTest, timeNeitherGoesBackNorBeyondItsEnd)
{
    EXPECT_THROW(time.advance(-1ns), std::invalid_argument);
    time.advance(1s);
    time.schedule(nanoseconds::max(), note("end"));
    time.advance(nanoseconds::max());
    EXPECT_EQ(time.now(), nanoseconds::max());
    EXPECT_EQ(events.size(), 1U);
}

TEST_F(VirtualTimeTest, emptyTimerIsRefused)
{
    EXPECT_THROW(time.schedule(1ms, nullptr), std::invalid_argument);
}

TEST_F(VirtualTimeTest, manyThreadsSleepScheduleAndCancel)
{
    int run = 0; // timers never run two at once
    std::atomic<int> cancelled{0};
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (int round = 0; round < 100; ++round) {
                    const auto timer = time.schedule(1ms, [&] { ++run; });
                    time.schedule(2ms, [&] { ++run; });
                    cancelled += time.cancel(timer) ? 1 : 0;
                    Util::DefaultSleepApi::get().sleep(1);
                }
            });
        }
    }
    time.advance(2ms);
    EXPECT_EQ(run + cancelled, 800);
    EXPECT_EQ(time.now(), 402ms);
    EXPECT_EQ(time.sleeps().size(), 400U);
}

} // namespace
