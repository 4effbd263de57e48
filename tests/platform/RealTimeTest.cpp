#include "RealTime.h"

#include "DefaultSleepApi.h"
#include "MemorySink.h"
#include "SteadyClockApi.h"
#include "TraceService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using testing::ElementsAre;
using zyr_platform::RealTime;
using zyr_platform::TimeSource;

/// Waits until all that is due now has run.
void settle(RealTime& time)
{
    std::promise<void> through;
    time.schedule(0ns, [&] { through.set_value(); });
    through.get_future().wait();
}

TEST(RealTimeTest, clockIsTheHostsSteadyClock)
{
    const RealTime time;
    const auto before = std::chrono::steady_clock::now().time_since_epoch();
    const auto now = time.now();
    const auto inForce = Util::SteadyClockApi::get().now();
    const auto after = std::chrono::steady_clock::now().time_since_epoch();
    EXPECT_LE(before, now);
    EXPECT_LE(now, inForce);
    EXPECT_LE(inForce, after);
}

TEST(RealTimeTest, sleeperOfTheHostPausesAtLeastSoLong)
{
    const auto before = std::chrono::steady_clock::now();
    Util::DefaultSleepApi::get().sleep(1);
    EXPECT_GE(std::chrono::steady_clock::now() - before, 1ms);
}

TEST(RealTimeTest, timersRunInOrderOnOneOtherThreadAndNotBeforeTheirTime)
{
    RealTime time;
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    std::promise<std::chrono::nanoseconds> last;
    const auto start = time.now();
    time.schedule(3ms, [&] { last.set_value(time.now()); });
    for (int i = 0; i < 3; ++i) {
        time.schedule(0ns, [&, i] {
            order.push_back(i);
            threads.push_back(std::this_thread::get_id());
        });
    }
    EXPECT_GE(last.get_future().get() - start, 3ms);
    EXPECT_THAT(order, ElementsAre(0, 1, 2));
    EXPECT_NE(threads[0], std::this_thread::get_id());
    EXPECT_THAT(threads, testing::Each(threads[0]));
}

TEST(RealTimeTest, earlierTimerThatComesLaterIsNotHeldUp)
{
    RealTime time;
    const auto far = time.schedule(1h, [] {});
    settle(time);
    EXPECT_TRUE(time.cancel(far));
}

TEST(RealTimeTest, timerMayScheduleAndCancel)
{
    RealTime time;
    std::promise<bool> done;
    time.schedule(0ns, [&] {
        const auto never = time.schedule(1h, [] {});
        const bool wasThere = time.cancel(never);
        time.schedule(1us, [&done, wasThere] { done.set_value(wasThere); });
    });
    EXPECT_TRUE(done.get_future().get());
}

TEST(RealTimeTest, cancelTellsWhetherTheTimerWasStillThere)
{
    RealTime time;
    const auto run = time.schedule(0ns, [] {});
    settle(time);
    EXPECT_FALSE(time.cancel(run));
    EXPECT_FALSE(time.cancel(0));
    const auto waiting = time.schedule(1h, [] {});
    EXPECT_TRUE(time.cancel(waiting));
    EXPECT_FALSE(time.cancel(waiting));
}

TEST(RealTimeTest, timersThatAreLeftAreDroppedAtTheEnd)
{
    const auto held = std::make_shared<int>(0);
    {
        RealTime time;
        time.schedule(1h, [held] { ++*held; });
        time.schedule(std::chrono::nanoseconds::max(), [held] { ++*held; });
        settle(time);
        EXPECT_EQ(held.use_count(), 3);
    }
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_EQ(*held, 0);
}

TEST(RealTimeTest, exceptionOfATimerIsTracedAndTheNextRuns)
{
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const auto added = zyr_platform::TraceService::get().addSink(sink);
    RealTime time;
    time.schedule(0ns, [] { throw std::runtime_error("out of air"); });
    time.schedule(0ns, [] { throw 1; });
    settle(time);
    const auto records = sink->records();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].channel, "ZYR.RealTime");
    EXPECT_EQ(records[0].level, 1);
    EXPECT_EQ(records[0].text, "out of air");
    EXPECT_EQ(records[1].text, "a timer's function threw an exception");
}

TEST(RealTimeTest, emptyTimerIsRefused)
{
    RealTime time;
    EXPECT_THROW(time.schedule(1ms, nullptr), std::invalid_argument);
}

TEST(RealTimeTest, manyThreadsScheduleAndCancel)
{
    RealTime time;
    int run = 0; // timers never run two at once
    std::atomic<int> cancelled{0};
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (int round = 0; round < 200; ++round) {
                    const TimeSource::TimerId timer = time.schedule(0ns, [&run] { ++run; });
                    cancelled += time.cancel(timer) ? 1 : 0;
                }
            });
        }
    }
    std::promise<int> total;
    time.schedule(0ns, [&] { total.set_value(run); });
    EXPECT_EQ(total.get_future().get() + cancelled, 800);
}

} // namespace
