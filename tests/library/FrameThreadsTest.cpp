#include "CiGetEventsImpl.h"
#include "CiGetFastEventsImpl.h"
#include "CiReleaseFastEventsRequestsImpl.h"
#include "CommandTest.h"
#include "Probe.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <latch>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace zyr_top_api
{
namespace
{

using zyr_test::GatedProbe;
using zyr_test::OpenProbe;

/// Holds fast requests until they are released, and tells when they hang.
class HoldingAlarmHandler : public IAlarmHandlerTopApi
{
  public:
    ResultCode getAlarms(std::vector<AlarmEvent>& alarms) override
    {
        alarms = {{"link", true, 1, 1}};
        return 0;
    }
    ResultCode getFastAlarms(std::vector<AlarmEvent>& alarms) override
    {
        std::unique_lock lock(m_mutex);
        ++m_hanging;
        m_changed.notify_all();
        const int release = m_releases;
        m_changed.wait(lock, [&] { return m_releases != release; });
        --m_hanging;
        alarms.push_back({"released", true, 1, 2});
        return 0x8015;
    }
    ResultCode releaseFastAlarmRequests() override
    {
        const std::lock_guard lock(m_mutex);
        ++m_releases;
        m_changed.notify_all();
        return 0;
    }
    ResultCode getAlarmsByOption(std::int32_t, std::vector<AlarmEvent>&) override { return 0; }
    ResultCode setAlarmEvents(const TiSetEventsCommand&) override { return 0; }

    void waitUntilHanging(int requests)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_hanging == requests; });
    }

  private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_hanging = 0;
    int m_releases = 0;
};

class FrameThreadsTest : public zyr_test::CommandTest
{
  protected:
    template <class XImpl>
    XImpl& add(const std::string& name)
    {
        const auto wrapper = std::make_shared<CmdWrapper<XImpl>>(name);
        ZyrApiHandler::m_cmds.push_back(wrapper);
        return wrapper->impl();
    }

    /// Runs the function on so many threads, which start at the same moment, and waits for all.
    template <class Function>
    static void onThreads(int count, Function function)
    {
        std::latch start(count);
        std::vector<std::jthread> threads;
        for (int number = 0; number < count; ++number) {
            threads.emplace_back([&, number] {
                start.arrive_and_wait();
                function(number);
            });
        }
    }
};

constexpr int kThreads = 8;
constexpr int kCalls = 500;

TEST_F(FrameThreadsTest, CommandsOfAllThreadsRunOneAtATimeAndEachGetsItsOwnAnswer)
{
    int running = 0; // unguarded on purpose: the frame is the guard
    int total = 0;
    add<OpenProbe>("CRI.Probe").behaviour = [&](const OpenProbe::Command& command) {
        EXPECT_EQ(++running, 1);
        ++total;
        --running;
        return OpenProbe::answer(command);
    };
    onThreads(kThreads, [](int thread) {
        for (int call = 0; call < kCalls; ++call) {
            const int number = thread * kCalls + call;
            EXPECT_EQ(ZyrApiHandler::executeCommand(OpenProbe(), OpenProbe::Command{number}).number,
                      10 * number);
        }
    });
    EXPECT_EQ(total, kThreads * kCalls);
}

TEST_F(FrameThreadsTest, GateThatFlipsGivesEachCallOneOfItsTwoAnswers)
{
    add<GatedProbe>("TI.Probe");
    std::atomic<int> refused = 0;
    std::atomic<int> passed = 0;
    onThreads(kThreads, [&](int thread) {
        for (int call = 0; call < kCalls; ++call) {
            if (thread == 0) {
                ZyrApiHandler::setTiEnabled(call % 2 == 0);
                continue;
            }
            const auto response = ZyrApiHandler::executeCommand(GatedProbe(), GatedProbe::Command{1});
            if (response.tiResult == eTI_S_OK) {
                EXPECT_EQ(response.number, 10);
                ++passed;
            } else {
                EXPECT_EQ(outcome(response), R"(result 0x8003 4 "Error: Command not available")");
                ++refused;
            }
        }
    });
    EXPECT_EQ(passed + refused, (kThreads - 1) * kCalls);
}

TEST_F(FrameThreadsTest, TraceLevelsThatFlipDisturbNoCall)
{
    add<OpenProbe>("CRI.Probe");
    onThreads(4, [&](int thread) {
        for (int call = 0; call < 100; ++call) {
            if (thread == 0) {
                setTraceLevel("ZYR.*", call % 8);
            } else {
                EXPECT_EQ(ZyrApiHandler::executeCommand(OpenProbe(), OpenProbe::Command{call}).number,
                          10 * call);
            }
        }
    });
}

TEST_F(FrameThreadsTest, ExceptionsOfSomeCallsLeaveTheOthersAlone)
{
    add<OpenProbe>("CRI.Probe").behaviour = [](const OpenProbe::Command& command) {
        if (command.number % 2 == 1) {
            throw command.number;
        }
        return OpenProbe::answer(command);
    };
    onThreads(kThreads, [](int thread) {
        for (int call = 0; call < 100; ++call) {
            if (thread % 2 == 1) {
                EXPECT_THROW(ZyrApiHandler::executeCommand(OpenProbe(), OpenProbe::Command{thread}), int);
            } else {
                EXPECT_EQ(ZyrApiHandler::executeCommand(OpenProbe(), OpenProbe::Command{thread}).number,
                          10 * thread);
            }
        }
    });
}

class LongPollTest : public FrameThreadsTest
{
  protected:
    LongPollTest()
    {
        publish("IAlarmHandlerTopApi", alarmHandler);
        enrol<CiGetFastEventsImpl>();
        enrol<CiGetEventsImpl>();
        enrol<CiReleaseFastEventsRequestsImpl>();
    }

    HoldingAlarmHandler alarmHandler;
};

TEST_F(LongPollTest, ReleaseFreesAllHangingRequestsAndOthersRunMeanwhile)
{
    std::vector<CiGetFastEvents::Response> responses(2);
    {
        std::vector<std::jthread> requests;
        for (std::size_t number = 0; number < responses.size(); ++number) {
            requests.emplace_back([&, number] {
                responses[number] = ciGetFastEvents({{{"view " + std::to_string(number), false, 0, 1}}});
            });
        }
        alarmHandler.waitUntilHanging(2);
        EXPECT_EQ(ciGetEvents({}).events.size(), 1U);
        EXPECT_EQ(outcome(ciReleaseFastEventsRequests({})), R"(result 0x0 0 "")");
    }
    for (std::size_t number = 0; number < responses.size(); ++number) {
        EXPECT_EQ(outcome(responses[number]), R"(result 0x8000 4 "CI.GetFastEvents has been terminated")");
        ASSERT_EQ(responses[number].events.size(), 2U);
        EXPECT_EQ(responses[number].events[0].eventName, "view " + std::to_string(number));
        EXPECT_EQ(responses[number].events[1].eventName, "released");
    }
    EXPECT_EQ(transcript.text(), R"(
2 ZYR.TI.CiGetFastEvents: CI.GetFastEvents has been terminated
2 ZYR.TI.CiGetFastEvents: CI.GetFastEvents has been terminated
)");
}

TEST_F(LongPollTest, RequestsHangAndAreReleasedOverAndOverWhileOthersRun)
{
    add<OpenProbe>("CRI.Probe");
    for (int round = 0; round < 20; ++round) {
        std::vector<std::jthread> threads;
        for (int number = 0; number < 4; ++number) {
            threads.emplace_back([] { ciGetFastEvents({}); });
        }
        threads.emplace_back([] {
            for (int call = 0; call < 20; ++call) {
                EXPECT_EQ(ZyrApiHandler::executeCommand(OpenProbe(), OpenProbe::Command{1}).number, 10);
            }
        });
        alarmHandler.waitUntilHanging(4);
        EXPECT_EQ(ciReleaseFastEventsRequests({}).tiResult, eTI_S_OK);
    }
}

} // namespace
} // namespace zyr_top_api
