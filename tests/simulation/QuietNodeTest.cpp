#include "IAlarmHandlerTopApi.h"
#include "SimulationFixture.h"
#include "TimeSource.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

// A node that nobody asks does nothing, and nobody who asks later can tell.

namespace
{

using namespace std::chrono_literals;
using zyr_simulation::NodeSnapshot;
using zyr_simulation::SimulatedNodeOptions;

/// A time that stands still and keeps the timers that it is given.
class StandingTime : public zyr_platform::TimeSource
{
  public:
    std::chrono::nanoseconds now() const override { return 0ns; }
    TimerId schedule(std::chrono::nanoseconds delay, std::function<void()> function) override
    {
        delays.push_back(delay);
        functions.push_back(std::move(function));
        return functions.size();
    }
    bool cancel(TimerId /*timer*/) override { return false; }

    std::vector<std::chrono::nanoseconds> delays;
    std::vector<std::function<void()>> functions;
};

/// Carries traffic from the start, over a path that fades so much that the link comes and goes.
SimulatedNodeOptions fading()
{
    SimulatedNodeOptions options;
    options.startUp = Zyr::ZyrInitState::WarmRestart;
    options.fading_dBTenths = 500;
    options.pathLoss_dBTenths = 800;
    return options;
}

/// What has come of the time so far, for people.
std::string historyOf(const NodeSnapshot& snapshot)
{
    std::string text;
    for (const auto& channel : snapshot.channels) {
        const auto& receiver = channel.receiver;
        text += "lowest level " + std::to_string(receiver.lowestLevel.value_or(0)) + ", lowest SNIR " +
                std::to_string(receiver.lowestSnir.value_or(0)) + ", locked " +
                std::to_string(receiver.lockedCounter) + ", blocks " +
                std::to_string(static_cast<long>(receiver.received.blocks)) + ", errored " +
                std::to_string(static_cast<long>(receiver.received.erroredBlocks)) + "\n";
    }
    for (const auto& alarm : snapshot.alarms) {
        text += alarm.eventName + " " + std::to_string(alarm.radioChannelId) + " " +
                std::to_string(alarm.numberOfTimesEventHasBeenActive) + " times, last after " +
                std::to_string((alarm.changedAt - snapshot.systemTime) / 1ms) + " ms\n";
    }
    return text;
}

class QuietNodeTest : public SimulationFixture
{};

TEST_F(QuietNodeTest, nodeThatNobodyAsksSetsNoTimer)
{
    endNode();
    StandingTime standing;
    const zyr_simulation::SimulatedNode node({}, standing);
    EXPECT_EQ(node.channel(1).number, 1U);
    EXPECT_TRUE(standing.delays.empty());
}

TEST_F(QuietNodeTest, nodeLooksAtItselfAsLongAsSomebodyWaitsForItsAlarms)
{
    endNode();
    StandingTime standing;
    zyr_simulation::SimulatedNode node({}, standing);
    auto& alarms = require<IAlarmHandlerTopApi>("IAlarmHandlerTopApi");
    std::vector<zyr_top_api::AlarmEvent> view;
    std::thread waiting([&] { alarms.getFastAlarms(view); });
    while (node.alarmHandler().hangingRequests() == 0) {
        std::this_thread::yield();
    }
    EXPECT_EQ(standing.delays, std::vector<std::chrono::nanoseconds>{100ms});
    standing.functions.at(0)();
    EXPECT_EQ(standing.delays, (std::vector<std::chrono::nanoseconds>{100ms, 100ms}));
    EXPECT_EQ(alarms.releaseFastAlarmRequests(), 0U);
    waiting.join();
    standing.functions.at(1)();
    EXPECT_EQ(standing.delays.size(), 2U);
}

TEST_F(QuietNodeTest, whatHappenedWhileNobodyLookedIsToldAsIfSomebodyHad)
{
    startNode(fading());
    for (int tick = 0; tick < 600; ++tick) {
        time().advance(100ms);
        node().snapshot();
    }
    const std::string seen = historyOf(node().snapshot());
    EXPECT_NE(seen.find("LinkDown 1"), std::string::npos) << seen;
    endNode();

    zyr_platform::VirtualTime otherTime; // from 0 again, since the fading follows from the time
    const zyr_simulation::SimulatedNode unseen(fading(), otherTime);
    otherTime.advance(60s);
    EXPECT_EQ(historyOf(unseen.snapshot()), seen);
}

TEST_F(QuietNodeTest, eventsOfADayThatNobodyLookedAtAreThere)
{
    startNode(fading());
    time().advance(24h);
    const std::string history = historyOf(node().snapshot());
    EXPECT_NE(history.find("LinkDown 1"), std::string::npos) << history;
    EXPECT_GT(node().snapshot().channels[0].receiver.received.blocks, 0);
}

TEST_F(QuietNodeTest, errorsInjectedInAPartOfTheTimeStrikeThatPart)
{
    SimulatedNodeOptions options = fading();
    options.fading_dBTenths = 0;
    options.pathLoss_dBTenths = 600;
    startNode(options);
    time().advance(1s);
    const double errored = node().snapshot().channels[0].receiver.received.erroredBlocks;
    dspStatus(1).injectErrorBlocks(true, 2, 10);
    time().advance(10s);
    const auto received = node().snapshot().channels[0].receiver.received;
    EXPECT_NEAR(received.erroredBlocks - errored, 200, 1);
}

} // namespace
