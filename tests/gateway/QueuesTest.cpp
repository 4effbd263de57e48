#include "Exchange.h"
#include "Lane.h"
#include "ListenSocket.h"
#include "LongPolls.h"
#include "MemoryBudget.h"
#include "PasswordChecker.h"
#include "WorkerPool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

using namespace zyr_gateway;

// The server's queues and the like, each for itself: what they do when they are full, closed or left.

namespace
{

// A job that is held until the test lets it go.
class HeldJob
{
  public:
    /// To be called by the queue.
    void operator()()
    {
        m_begun.set_value();
        m_mayGo.get_future().wait();
    }
    void waitUntilHeld() { m_begun.get_future().wait(); }
    void letGo() { m_mayGo.set_value(); }

  private:
    std::promise<void> m_begun;
    std::promise<void> m_mayGo;
};

TEST(LaneTest, RefusesWhatIsTooMuchToWaitButNotWhatGoesOn)
{
    std::vector<int> order;
    HeldJob held;
    {
        Lane lane(2);
        EXPECT_TRUE(lane.isFree());
        EXPECT_TRUE(lane.run([&] { held(); }));
        held.waitUntilHeld();
        EXPECT_FALSE(lane.isFree());
        EXPECT_FALSE(lane.tryRun([&] { order.push_back(0); }));
        EXPECT_TRUE(lane.run([&] { order.push_back(1); }));
        EXPECT_TRUE(lane.run([&] { order.push_back(2); }));
        EXPECT_FALSE(lane.run([&] { order.push_back(3); }));
        lane.goOn([&] { order.push_back(4); });
        held.letGo();
    }
    EXPECT_EQ(order, (std::vector<int>{1, 2, 4}));
}

TEST(LaneTest, WakesWhatHasComeInBehindAJobOfTheCallersOwn)
{
    std::promise<void> done;
    Lane lane(1);
    EXPECT_TRUE(lane.tryRun([&] { EXPECT_TRUE(lane.run([&] { done.set_value(); })); }));
    done.get_future().wait();
}

TEST(LaneTest, LetsNobodyOvertakeWhatWaits)
{
    for (int round = 0; round < 100; ++round) {
        std::promise<void> done;
        bool hasRun = false;
        bool hasOvertaken = false;
        Lane lane(1);
        ASSERT_TRUE(lane.tryRun([&] {
            EXPECT_TRUE(lane.run([&] {
                hasRun = true;
                done.set_value();
            }));
        }));
        const bool wasFree = lane.isFree();
        if (wasFree) {
            EXPECT_TRUE(hasRun) << round;
        }
        lane.tryRun([&] { hasOvertaken = !hasRun; });
        done.get_future().wait();
        EXPECT_FALSE(hasOvertaken) << round;
    }
}

TEST(WorkerPoolTest, TakesNothingOnceItIsClosedAndDoesWhatItHasTaken)
{
    std::vector<int> order;
    HeldJob held;
    {
        WorkerPool pool(1);
        EXPECT_TRUE(pool.run([&] { held(); }));
        held.waitUntilHeld();
        EXPECT_TRUE(pool.run([&] { order.push_back(1); }));
        pool.close();
        EXPECT_FALSE(pool.run([&] { order.push_back(2); }));
        held.letGo();
    }
    EXPECT_EQ(order, (std::vector<int>{1}));
}

// Polls that come back when they are released.
class HangingPolls
{
  public:
    // A poll of its own.
    zyr_gateway::LongPolls::Poll poll()
    {
        return {[this] { return hang(); }, [this] { ++m_finished; }};
    }
    void release()
    {
        const std::lock_guard lock(m_mutex);
        ++m_releases;
        m_changed.notify_all();
    }
    [[nodiscard]] int finished() const { return m_finished; }

  private:
    zyr_gateway::LongPolls::Outcome hang()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this, before = m_releases] { return m_releases != before; });
        return zyr_gateway::LongPolls::Outcome::Released;
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_releases = 0;
    std::atomic<int> m_finished = 0;
};

TEST(LongPollsTest, WhoLeavesTwiceHasLeftOnceAndNobodyIsTakenOnceStopped)
{
    HangingPolls hanging;
    zyr_gateway::LongPolls polls({.orphanTime = std::chrono::hours(1)}, [&] { hanging.release(); });
    zyr_gateway::LongPolls::Handle first = 0;
    zyr_gateway::LongPolls::Handle second = 0;
    ASSERT_TRUE(polls.start(hanging.poll(), first));
    ASSERT_TRUE(polls.start(hanging.poll(), second));
    polls.leave(first);
    polls.leave(first);
    polls.leave(second + 1);
    EXPECT_EQ(polls.orphans(), 1U);
    EXPECT_EQ(polls.polls(), 1U);
    polls.stop();
    EXPECT_FALSE(polls.start(hanging.poll(), first));
    EXPECT_EQ(polls.orphans(), 0U);
    EXPECT_EQ(polls.polls(), 0U);
}

TEST(LongPollsTest, PollsThatHangForNobodyAreReleasedInWhateverOrderTheirClientsLeft)
{
    HangingPolls hanging;
    zyr_gateway::LongPolls polls({.orphanTime = std::chrono::milliseconds(10)}, [&] { hanging.release(); });
    zyr_gateway::LongPolls::Handle first = 0;
    zyr_gateway::LongPolls::Handle second = 0;
    zyr_gateway::LongPolls::Handle third = 0;
    ASSERT_TRUE(polls.start(hanging.poll(), first));
    ASSERT_TRUE(polls.start(hanging.poll(), second));
    ASSERT_TRUE(polls.start(hanging.poll(), third));
    polls.leave(third);
    polls.leave(first);
    while (hanging.finished() < 2) {
        std::this_thread::yield();
    }
    EXPECT_EQ(polls.orphans(), 0U);
    EXPECT_EQ(polls.polls(), 1U) << "that of the client who is there";
}

TEST(PasswordCheckerTest, RefusesTheSixtyFifthThatWaits)
{
    HeldJob held;
    PasswordChecker checker;
    EXPECT_TRUE(checker.submit([&] { held(); }));
    held.waitUntilHeld();
    for (int check = 1; check <= 64; ++check) {
        EXPECT_TRUE(checker.submit([] {})) << check;
    }
    EXPECT_FALSE(checker.submit([] {}));
    held.letGo();
}

std::string listenError(const std::string& address)
{
    try {
        const ListenSocket socket(address, 0);
    } catch (const HttpServerError& error) {
        return error.what();
    }
    return "none";
}

TEST(ListenSocketTest, TakesNumericAddressesOfThisMachineAlone)
{
    EXPECT_EQ(listenError("127.0.0.1"), "none");
    EXPECT_EQ(listenError("node.example"), "cannot listen on node.example: not a numeric address");
    EXPECT_EQ(listenError("192.0.2.1"), "cannot listen on 192.0.2.1 port 0: Cannot assign requested address");
}

TEST(MemoryBudgetTest, TellsOnceThatABurstIsOver)
{
    MemoryBudget budget(5'000'000);
    MemoryBudget::Share burst(budget);
    MemoryBudget::Share rest(budget);
    ASSERT_TRUE(burst.set(4'194'304));
    ASSERT_TRUE(burst.set(0));
    EXPECT_FALSE(budget.isBurstOver()); // that was none

    ASSERT_TRUE(burst.set(4'194'304));
    ASSERT_TRUE(rest.set(1));
    EXPECT_FALSE(budget.isBurstOver());
    ASSERT_TRUE(rest.set(65'536));
    ASSERT_TRUE(burst.set(0));
    EXPECT_FALSE(budget.isBurstOver());
    ASSERT_TRUE(rest.set(65'535));
    EXPECT_TRUE(budget.isBurstOver());
    EXPECT_FALSE(budget.isBurstOver());

    ASSERT_FALSE(burst.set(4'934'466)); // refused, and so none either
    EXPECT_FALSE(budget.isBurstOver());
}

TEST(ListenSocketTest, KnowsItsPortOfEitherFamily)
{
    EXPECT_NE(ListenSocket("127.0.0.1", 0).port(), 0);
    if (listenError("::1") != "none") {
        GTEST_SKIP() << "no IPv6 here";
    }
    EXPECT_NE(ListenSocket("::1", 0).port(), 0);
}

class ExchangeTest : public testing::Test
{
  protected:
    std::shared_ptr<MemoryBudget> budget = std::make_shared<MemoryBudget>(100);
    Exchange exchange{budget};
    int told = 0;
};

TEST_F(ExchangeTest, TellsOnceThatTheClientLeaves)
{
    exchange.whenClientLeaves([this] { ++told; });
    EXPECT_FALSE(exchange.hasClientLeft());
    exchange.clientHasLeft();
    exchange.clientHasLeft();
    EXPECT_TRUE(exchange.hasClientLeft());
    EXPECT_EQ(told, 1);
}

TEST_F(ExchangeTest, TellsAtOnceThatTheClientHasLeftAlready)
{
    exchange.clientHasLeft();
    exchange.whenClientLeaves([this] { ++told; });
    EXPECT_EQ(told, 1);
}

TEST_F(ExchangeTest, TellsNothingBehindTheAnswer)
{
    exchange.answer({.status = 200, .body = "done"});
    exchange.whenClientLeaves([this] { ++told; });
    exchange.clientHasLeft();
    EXPECT_EQ(told, 0);
}

TEST_F(ExchangeTest, KeepsTheFirstAnswerAndGivesItOnce)
{
    EXPECT_FALSE(exchange.take());
    exchange.answer({.status = 200, .body = "first"});
    exchange.answer({.status = 200, .body = "second"});
    exchange.letFall();
    EXPECT_EQ(exchange.take().value().body, "first");
    EXPECT_FALSE(exchange.take());
}

TEST_F(ExchangeTest, HoldsTheBodyUntilTheAnswerAndTheAnswerUntilItIsReleased)
{
    EXPECT_TRUE(exchange.holdBody(60));
    EXPECT_FALSE(exchange.holdBody(101));
    EXPECT_EQ(budget->held(), 60U);
    exchange.answer({.status = 200, .body = std::string(100, 'x')});
    EXPECT_EQ(budget->held(), 100U);
    exchange.release();
    EXPECT_EQ(budget->held(), 0U);
}

TEST_F(ExchangeTest, AnswersWith503WhatIsTooMuchToHold)
{
    exchange.answer({.status = 200, .body = std::string(101, 'x')});
    const auto answer = exchange.take().value();
    EXPECT_EQ(answer.status, 503U);
    EXPECT_EQ(answer.body, "There is too much in work.\n");
}

TEST_F(ExchangeTest, AnswersWith500WhatIsLetFall)
{
    exchange.letFall();
    const auto answer = exchange.take().value();
    EXPECT_EQ(answer.status, 500U);
    EXPECT_EQ(answer.body, "The request was not answered.\n");
}

} // namespace
