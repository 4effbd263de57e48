#include "CommandsOnNode.h"
#include "CriCalibrateDspPpsImpl.h"
#include "CriGetCalibrationStatusDspPpsImpl.h"
#include "CriGetHopLengthTimeDspPpsImpl.h"
#include "CriManagePathLatencyImpl.h"
#include "CriSetOutputModeDspPpsImpl.h"
#include "CriSetSourceDspPpsImpl.h"
#include "KeptZone.h"
#include "TiManagePathLatencyCompensationImpl.h"
#include "TiManageRealTimeClockImpl.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <latch>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using namespace zyr_top_api;

// Pulse, latency and clock of the simulated node, set and seen through the commands alone.
class TimingByCommandsTest : public zyr_test::CommandsOnNode
{
  protected:
    TimingByCommandsTest() : CommandsOnNode({.fading_dBTenths = 0})
    {
        enrol<CriCalibrateDspPpsImpl, CriGetCalibrationStatusDspPpsImpl, CriGetHopLengthTimeDspPpsImpl,
              CriManagePathLatencyImpl, CriSetOutputModeDspPpsImpl, CriSetSourceDspPpsImpl,
              TiManagePathLatencyCompensationImpl, TiManageRealTimeClockImpl>();
        EXPECT_EQ(configure(), "");
        time.advance(10s);
    }

    static void calibrate(PpsRtcCalibrationMode mode, std::uint32_t period_ms = 0)
    {
        EXPECT_EQ(criCalibrateDspPps({1, mode, period_ms}).faultString, "");
    }

    static std::string calibration()
    {
        const auto answer = criGetCalibrationStatusDspPps({1});
        EXPECT_EQ(answer.faultString, "");
        return std::string(ppsCalibStatusToString(answer.ppsCalibStatus)) + " " +
               std::string(ppsCalibReasonOfFailureToString(answer.ppsCalibReasonOfFailure));
    }

    static CriManagePathLatency::Response latency(general_classes::Optional<std::int32_t> xpicSlave = {})
    {
        return criManagePathLatency({1, xpicSlave, {}, {}});
    }

    static std::string clock(const std::string& dateTime = {})
    {
        const auto answer = tiManageRealTimeClock({dateTime});
        EXPECT_EQ(answer.faultString, "");
        return answer.dateTime;
    }

    unsigned recoveries() const { return node.snapshot().dsp.recoveries; }

    zyr_test::KeptZone zone;
};

TEST_F(TimingByCommandsTest, CalibrationEndsAsTheSourceAndTheLinkLetIt)
{
    EXPECT_EQ(calibration(), "NotCalibrated NotRelevant");
    calibrate(PpsRtcCalibrationMode::Fine);
    time.advance(1s);
    EXPECT_EQ(calibration(), "Failed CoarseNeeded");
    calibrate(PpsRtcCalibrationMode::CoarseAndFine);
    EXPECT_EQ(calibration(), "CoarseInProgress NotRelevant");
    time.advance(2s);
    EXPECT_EQ(calibration(), "FineInProgress NotRelevant");
    time.advance(1s);
    EXPECT_EQ(calibration(), "Successful NotRelevant");
    EXPECT_EQ(criGetHopLengthTimeDspPps({1}).ppsHopLengthTime, 26'678U);

    EXPECT_EQ(criSetSourceDspPps({1, PpsSource::External, 120}).faultString, "");
    EXPECT_EQ(criSetOutputModeDspPps({1, PpsOutputMode::Auto}).faultString, "");
    EXPECT_EQ(node.channel(1).pps.offset_ns, 120U);
    EXPECT_EQ(node.channel(1).pps.outputMode, PpsOutputMode::Auto);
    node.setPpsSignalPresent(1, false);
    calibrate(PpsRtcCalibrationMode::Auto, 65'536 + 500);
    time.advance(1s);
    EXPECT_EQ(calibration(), "Failed SlaveLOL");
    node.setPpsSignalPresent(1, true);
    time.advance(500ms);
    EXPECT_EQ(calibration(), "AutoFineInProgress NotRelevant") << "the low 16 bits of the period count";
    time.advance(1s);
    EXPECT_EQ(calibration(), "Successful NotRelevant");
    calibrate(PpsRtcCalibrationMode::AutoOff);
    node.setFarEndTransmits(false);
    time.advance(60s);
    EXPECT_EQ(calibration(), "Successful NotRelevant");
    EXPECT_EQ(criGetHopLengthTimeDspPps({1}).faultString,
              "CRI.GetHopLengthTimeDspPps failed to get hop length time.");
}

TEST_F(TimingByCommandsTest, GreatStepOfALatencyIsTakenWithOneRecovery)
{
    EXPECT_EQ(latency().rxPathLatency, 26'678U);
    const unsigned before = recoveries();
    EXPECT_EQ(latency(100).rxPathLatency, 26'778U);
    EXPECT_EQ(recoveries(), before);
    const auto behindRecovery = latency(201);
    EXPECT_EQ(behindRecovery.faultString, "");
    EXPECT_EQ(behindRecovery.rxPathLatency, 26'879U);
    EXPECT_FALSE(behindRecovery.isValidValues) << "the DSP recovers";
    EXPECT_EQ(recoveries(), before + 1);
    EXPECT_EQ(node.snapshot().dsp.lastRecovery, Recover::Dsp);
    time.advance(5s);
    EXPECT_TRUE(latency().isValidValues);
    EXPECT_EQ(latency().rxPathLatency, 26'879U);
    const auto compensation = tiManagePathLatencyCompensation({});
    EXPECT_EQ(compensation.adjFifoMain, 20);
    EXPECT_EQ(compensation.adjFifoXpicSlave, 0);
    EXPECT_EQ(compensation.adjFifoMimoSpatial, 20);
    EXPECT_EQ(compensation.adjFifoMimoXSpatialSlave, 20);
}

TEST_F(TimingByCommandsTest, RecoveryThatFailsLeavesTheLatencyAlone)
{
    node.faults().inject({"RecoveryController", "startDspRecovery", 0, 0x8000, 1});
    EXPECT_EQ(latency(500).faultString, "Failed to recover DSP");
    EXPECT_EQ(latency().rxPathLatency, 26'678U);
    EXPECT_EQ(latency(500).rxPathLatency, 27'178U);
}

TEST_F(TimingByCommandsTest, CompensationIsKeptForEachChain)
{
    using bcm::types::ModemChain;
    TiManagePathLatencyCompensation::Command command;
    command.onePpsDelaySet = -7;
    command.adjFifoSamplesSet = 300;
    command.fffFifoSamplesSet = 9;
    EXPECT_EQ(tiManagePathLatencyCompensation(command).adjFifoMain, 0) << "a chain must be told";
    command.modemChain = ModemChain::MimoSpatial;
    const auto answer = tiManagePathLatencyCompensation(command);
    EXPECT_EQ(answer.onePpsDelayNanosec, -7);
    EXPECT_EQ(answer.adjFifoMain, 0);
    EXPECT_EQ(answer.adjFifoMimoSpatial, 44);
    EXPECT_EQ(answer.fffFifoMimoSpatial, 9);
    command.modemChain = ModemChain::MrcDiversity;
    EXPECT_EQ(tiManagePathLatencyCompensation(command).adjFifoMimoSpatial, 44);
    EXPECT_EQ(node.channel(1).dsp.chainDelays[2].adjFifo, 44);
}

TEST_F(TimingByCommandsTest, ClockThatIsSetStampsTheAlarmsThatFollow)
{
    EXPECT_EQ(clock("20260114T08:30:05"), "20260114T08:30:05");
    time.advance(60s);
    EXPECT_EQ(clock(), "20260114T08:31:05");
    node.setFarEndTransmits(false);
    node.setFarEndTransmits(true);
    for (const auto& alarm : node.snapshot().alarms) {
        if (alarm.eventName == "LinkDown" && alarm.radioChannelId == 1) {
            EXPECT_EQ(std::chrono::floor<std::chrono::seconds>(alarm.changedAt),
                      std::chrono::seconds(1'768'379'465)); // 2026-01-14 08:31:05
            return;
        }
    }
    FAIL() << "no alarm LinkDown";
}

// Under the command mutex, so that no thread sees another zone or half a time.
TEST_F(TimingByCommandsTest, EightThreadsCallCommandsWhileTwoOfThemSetTheClock)
{
    setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
    const std::array<std::string, 2> times{"20260114T08:30:05", "20310722T23:59:59"};
    clock(times[0]); // the node's time stands still until it is told to go on
    std::atomic<unsigned> calls{0};
    std::mutex mutex;
    std::set<std::string> answers;
    const auto keep = [&](const auto& answer) {
        const std::scoped_lock lock(mutex);
        answers.insert(answer);
    };
    const std::vector<std::function<void()>> works{
        [&] { keep("first " + clock(times[0])); },
        [&] { keep("second " + clock(times[1])); },
        [&] { keep("read " + clock()); },
        [&] { keep(tiManageRealTimeClock({"2026-01-14T08:30"}).faultString); },
        [&] { keep("latency " + std::to_string(latency().rxPathLatency)); },
        [&] { keep("hop " + std::to_string(criGetHopLengthTimeDspPps({1}).ppsHopLengthTime)); },
        [&] {
            calibrate(PpsRtcCalibrationMode::CoarseAndFine);
            keep(calibration());
        },
        [&] {
            keep("radio " + status().ActualRxModulation);
            node.snapshot();
        },
    };
    ASSERT_EQ(works.size(), 8U);
    std::latch start(8);
    std::vector<std::thread> threads;
    for (const auto& work : works) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (int round = 0; round < 100; ++round) {
                work();
                ++calls;
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(calls, 800U);
    for (const auto& moment : times) {
        answers.erase("read " + moment);
    }
    EXPECT_EQ(answers,
              (std::set<std::string>{"Cannot use \"2026-01-14T08:30\". Expected format is %Y%m%dT%H:%M:%S",
                                     "CoarseInProgress NotRelevant", "first 20260114T08:30:05", "hop 26678",
                                     "latency 26678", "radio 4096QAM", "second 20310722T23:59:59"}));
    EXPECT_STREQ(std::getenv("TZ"), "CET-1CEST,M3.5.0,M10.5.0/3");
}

} // namespace
