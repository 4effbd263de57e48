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
        return [this, name] { m_events.push_back(name + "@" + std::to_string(m_time.now() / 1ms)); };
    }

    VirtualTime m_time;
    std::vector<std::string> m_events;
};

TEST_F(VirtualTimeTest, startsAtZeroAndStandsStill)
{
    EXPECT_EQ(m_time.now(), 0ns);
    EXPECT_EQ(m_time.now(), 0ns);
}

TEST_F(VirtualTimeTest, isTheSleeperAndTheClockInForce)
{
    Util::DefaultSleepApi::get().sleep(100);
    EXPECT_EQ(Util::SteadyClockApi::get().now(), 100ms);
    EXPECT_EQ(m_time.now(), 100ms);
    Util::DefaultSleepApi::get().sleep(0);
    EXPECT_EQ(m_time.now(), 100ms);
    EXPECT_THAT(m_time.sleeps(), ElementsAre(100ms, 0ms));
}

TEST_F(VirtualTimeTest, longestSleepPassesAtOnce)
{
    Util::DefaultSleepApi::get().sleep(std::numeric_limits<std::uint32_t>::max());
    EXPECT_EQ(m_time.now(), 4294967295ms);
}

TEST_F(VirtualTimeTest, innerVirtualTimeGivesWayToTheOuterOne)
{
    {
        VirtualTime inner;
        Util::DefaultSleepApi::get().sleep(5);
        EXPECT_EQ(inner.now(), 5ms);
    }
    EXPECT_EQ(m_time.now(), 0ms);
    Util::DefaultSleepApi::get().sleep(7);
    EXPECT_EQ(m_time.now(), 7ms);
}

TEST_F(VirtualTimeTest, timersRunInTheOrderOfTimeThenOfScheduling)
{
    m_time.schedule(20ms, note("c"));
    m_time.schedule(10ms, note("a"));
    m_time.schedule(20ms, note("d"));
    m_time.schedule(10ms, note("b"));
    m_time.schedule(31ms, note("late"));
    m_time.advance(30ms);
    EXPECT_THAT(m_events, ElementsAre("a@10", "b@10", "c@20", "d@20"));
    EXPECT_EQ(m_time.now(), 30ms);
    m_time.advance(1ms);
    EXPECT_THAT(m_events, ElementsAre("a@10", "b@10", "c@20", "d@20", "late@31"));
}

TEST_F(VirtualTimeTest, sleepRunsTheTimersOnItsWay)
{
    m_time.schedule(50ms, note("a"));
    Util::DefaultSleepApi::get().sleep(100);
    EXPECT_THAT(m_events, ElementsAre("a@50"));
    EXPECT_EQ(m_time.now(), 100ms);
}

TEST_F(VirtualTimeTest, timerWithoutDelayRunsInTheNextAdvanceOfNothing)
{
    m_time.schedule(0ms, note("now"));
    m_time.schedule(-5ms, note("past"));
    EXPECT_THAT(m_events, ElementsAre());
    m_time.advance(0ms);
    EXPECT_THAT(m_events, ElementsAre("now@0", "past@0"));
}

TEST_F(VirtualTimeTest, timersMayScheduleFurtherOnesInTheSameAdvance)
{
    m_time.schedule(10ms, [&] {
        note("first")();
        m_time.schedule(0ms, note("at once"));
        m_time.schedule(10ms, note("second"));
        m_time.schedule(100ms, note("too late"));
    });
    m_time.advance(50ms);
    EXPECT_THAT(m_events, ElementsAre("first@10", "at once@10", "second@20"));
}

TEST_F(VirtualTimeTest, cancelledTimerDoesNotRun)
{
    const TimeSource::TimerId first = m_time.schedule(10ms, note("a"));
    const TimeSource::TimerId second = m_time.schedule(10ms, note("b"));
    EXPECT_NE(first, 0U);
    EXPECT_NE(first, second);
    EXPECT_TRUE(m_time.cancel(first));
    EXPECT_FALSE(m_time.cancel(first));
    EXPECT_FALSE(m_time.cancel(0));
    m_time.advance(10ms);
    EXPECT_THAT(m_events, ElementsAre("b@10"));
    EXPECT_FALSE(m_time.cancel(second));
}

TEST_F(VirtualTimeTest, runningTimerCannotBeCancelledButALaterOneCan)
{
    std::optional<bool> own;
    std::optional<bool> other;
    TimeSource::TimerId running = 0;
    running = m_time.schedule(10ms, [&] { own = m_time.cancel(running); });
    const TimeSource::TimerId next = m_time.schedule(10ms, note("next"));
    m_time.schedule(5ms, [&] { other = m_time.cancel(next); });
    m_time.advance(10ms);
    EXPECT_EQ(own, false);
    EXPECT_EQ(other, true);
    EXPECT_THAT(m_events, ElementsAre());
}

TEST_F(VirtualTimeTest, timerThatSleepsDelaysThoseBehindIt)
{
    m_time.schedule(10ms, [&] {
        Util::DefaultSleepApi::get().sleep(100);
        note("slept")();
    });
    m_time.schedule(20ms, note("behind"));
    m_time.schedule(50ms, note("beyond the advance"));
    m_time.advance(30ms);
    EXPECT_THAT(m_events, ElementsAre("slept@110", "behind@110", "beyond the advance@110"));
    EXPECT_EQ(m_time.now(), 110ms);
}

TEST_F(VirtualTimeTest, observersAreToldEveryTimeThatTheClockShows)
{
    std::vector<nanoseconds> seen;
    m_time.schedule(10ms, note("a"));
    m_time.schedule(10ms, note("b"));
    auto observing = m_time.onAdvance([&](nanoseconds now) {
        seen.push_back(now);
        note("seen")();
    });
    m_time.advance(0ms);
    m_time.advance(25ms);
    EXPECT_THAT(seen, ElementsAre(10ms, 25ms));
    EXPECT_THAT(m_events, ElementsAre("seen@10", "a@10", "b@10", "seen@25"));
    observing.withdraw();
    m_time.advance(5ms);
    EXPECT_THAT(seen, ElementsAre(10ms, 25ms));
}

TEST_F(VirtualTimeTest, observerMayScheduleAndWithdrawOthers)
{
    std::optional<Registration> second;
    const auto first = m_time.onAdvance([&](nanoseconds) {
        second.reset();
        m_time.schedule(0ms, note("scheduled"));
    });
    second = m_time.onAdvance([&](nanoseconds) { note("withdrawn")(); });
    m_time.advance(10ms);
    EXPECT_THAT(m_events, ElementsAre("scheduled@10"));
}

TEST_F(VirtualTimeTest, exceptionOfATimerLeavesAndTimeGoesOnAfterwards)
{
    m_time.schedule(10ms, [] { throw std::runtime_error("x"); });
    m_time.schedule(20ms, note("b"));
    EXPECT_THROW(m_time.advance(30ms), std::runtime_error);
    EXPECT_EQ(m_time.now(), 10ms);
    m_time.advance(20ms);
    EXPECT_THAT(m_events, ElementsAre("b@20"));
}

TEST_F(VirtualTimeTest, timeNeitherGoesBackNorBeyondItsEnd)
{
    EXPECT_THROW(m_time.advance(-1ns), std::invalid_argument);
    m_time.advance(1s);
    m_time.schedule(nanoseconds::max(), note("end"));
    m_time.advance(nanoseconds::max());
    EXPECT_EQ(m_time.now(), nanoseconds::max());
    EXPECT_EQ(m_events.size(), 1U);
}

TEST_F(VirtualTimeTest, emptyTimerIsRefused)
{
    EXPECT_THROW(m_time.schedule(1ms, nullptr), std::invalid_argument);
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
                    const auto timer = m_time.schedule(1ms, [&] { ++run; });
                    m_time.schedule(2ms, [&] { ++run; });
                    cancelled += m_time.cancel(timer) ? 1 : 0;
                    Util::DefaultSleepApi::get().sleep(1);
                }
            });
        }
    }
    m_time.advance(2ms);
    EXPECT_EQ(run + cancelled, 800);
    EXPECT_EQ(m_time.now(), 402ms);
    EXPECT_EQ(m_time.sleeps().size(), 400U);
}

} // namespace
