#include "IAlarmHandlerTopApi.h"
#include "ICcdpController.h"
#include "IOutputPowerController.h"
#include "IRssiHandler.h"
#include "RealTime.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>
#include <vector>

namespace
{

using namespace std::chrono_literals;

class ConcurrencyTest : public SimulationFixture
{
  protected:
    /// Does the work again and again, each on a thread of its own, while virtual time passes.
    void whileTimePasses(const std::vector<std::function<void()>>& works)
    {
        std::atomic<bool> isOver{false};
        std::vector<std::thread> threads;
        for (const auto& work : works) {
            threads.emplace_back([&] {
                while (!isOver) {
                    work();
                }
            });
        }
        for (int step = 0; step < 200; ++step) {
            time().advance(100ms);
            std::this_thread::yield();
        }
        isOver = true;
        for (auto& thread : threads) {
            thread.join();
        }
    }
};

TEST_F(ConcurrencyTest, commandsPollsTimersAndOutsideAccessGoTogether)
{
    configure(1);
    auto& alarmHandler = require<IAlarmHandlerTopApi>("IAlarmHandlerTopApi");
    std::atomic<unsigned> polls{0};
    std::thread poller([&] {
        std::vector<zyr_top_api::AlarmEvent> view;
        while (alarmHandler.getFastAlarms(view) == 0) {
            ++polls;
        }
    });
    while (node().alarmHandler().hangingRequests() == 0) {
        std::this_thread::yield();
    }
    bool available = false;
    whileTimePasses({[&] { configure(1); }, [&] { node().setRadioAvailable(1, available = !available); },
                     [&] {
                         int level = 0;
                         EXPECT_EQ(require<IRssiHandler>("IRssiHandler", 1).getRssi(level), 0U);
                         require<IOutputPowerController>("IOutputPowerController", 2).getTxStatus();
                     },
                     [&] {
                         node().faults().inject({"ICcdpController", "getXpi", 0, 0x8001, 1});
                         int xpi = 0;
                         require<ICcdpController>("ICcdpController", 2).getXpi(xpi);
                         node().snapshot();
                     }});
    EXPECT_EQ(acm(2).enableAcm(false), 0U);
    while (polls == 0) {
        std::this_thread::yield();
    }
    node().shutdown();
    poller.join();
}

TEST_F(ConcurrencyTest, nodeUnderRealTimeEndsWhileItsTimersRun)
{
    endNode();
    zyr_platform::RealTime realTime;
    for (int round = 0; round < 20; ++round) {
        zyr_simulation::SimulatedNode realNode({}, realTime);
        configure(1);
        EXPECT_EQ(power(1).configurePowerSettings(zyr_top_api::TxRequestedStatus::On, 0, 0, 100, 0, 1), 0U);
        EXPECT_EQ(realNode.snapshot().channels.size(), 2U);
    }
}

} // namespace
