#include "IRauLatencyCalculator.h"
#include "RecoveryController.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>

namespace
{

using namespace std::chrono_literals;
using bcm::types::ModemChain;
using zyr_top_api::RauLatencyGroup;
using zyr_top_api::RauLatencyRequest;

class PathLatencyTest : public SimulationFixture
{
  protected:
    PathLatencyTest() { configure(1); }

    static IRauLatencyCalculator& calculator(unsigned channel = 1)
    {
        return require<IRauLatencyCalculator>("IRauLatencyCalculator", channel);
    }

    /// Hands on the latencies that are given.
    static zyr_top_api::ETIResult set(std::optional<std::int32_t> xpicSlave,
                                      std::optional<std::int32_t> mimoSpatial = {},
                                      std::optional<std::int32_t> mimoSpatialSlave = {})
    {
        const auto group = [](std::optional<std::int32_t> value) {
            return value ? RauLatencyGroup{.value = *value, .hasValue = 1} : RauLatencyGroup{.value = 9999};
        };
        RauLatencyRequest request;
        request.group2 = group(xpicSlave);
        request.group5 = group(mimoSpatial);
        request.group6 = group(mimoSpatialSlave);
        return calculator().calculateAndSetDspDelayCompensation(request);
    }

    void recover()
    {
        EXPECT_EQ(require<nord::zyr::services::recovery::RecoveryController>("RecoveryController")
                      .startDspRecovery(zyr_top_api::Recover::Dsp),
                  0U);
    }

    struct Reading
    {
        bool isValid = false;
        std::uint32_t latency = 1;

        bool operator==(const Reading&) const = default;
    };

    static Reading read(unsigned channel = 1)
    {
        bool first = false;
        std::uint32_t third = 0;
        Reading reading;
        EXPECT_EQ(calculator(channel).getCurrentLatency(first, reading.isValid, third, reading.latency), 0U);
        return reading;
    }

    static std::array<int, 6> delays()
    {
        std::array<int, 6> all{};
        for (unsigned chain = 0; chain < all.size(); ++chain) {
            std::uint8_t samples = 0;
            EXPECT_TRUE(dspChannel(1).rxChainDelay(Action::Read, static_cast<ModemChain>(chain), samples));
            all[chain] = samples;
        }
        return all;
    }
};

TEST_F(PathLatencyTest, latencyIsThatOfTheHopUntilPathsAreTold)
{
    EXPECT_EQ(read(), (Reading{true, 26'678}));
    EXPECT_EQ(read(2), (Reading{false, 26'678})) << "without a link it doesn't count";
}

TEST_F(PathLatencyTest, slowestPathCountsAndLatenciesThatAreNotGivenStay)
{
    EXPECT_EQ(set(40, 100), 0U);
    EXPECT_EQ(read(), (Reading{true, 26'778}));
    EXPECT_EQ(set({}, 60, 30), 0U);
    EXPECT_EQ(read(), (Reading{true, 26'738}));
    EXPECT_EQ(set({}, 0), 0U);
    EXPECT_EQ(read(), (Reading{true, 26'718})) << "the XPIC slave's";
    EXPECT_EQ(set(-60, -100, -70), 0U);
    EXPECT_EQ(read(), (Reading{true, 26'678})) << "the main path's";
    const auto latency = node().channel(1).latency;
    EXPECT_EQ(latency.xpicSlave, -60);
    EXPECT_EQ(latency.mimoSpatial, -100);
    EXPECT_EQ(latency.mimoSpatialSlave, -70);
    EXPECT_EQ(read(2).latency, 26'678U);
}

TEST_F(PathLatencyTest, stepBeyondTheBoundNeedsAReset)
{
    const std::optional<std::int32_t> same;
    EXPECT_EQ(set(100, 100, 100), 0U);
    EXPECT_EQ(set(201, 0, 0), 0x8013U);
    EXPECT_EQ(set(0, 201, 0), 0x8013U);
    EXPECT_EQ(set(0, 0, -1), 0x8013U);
    EXPECT_EQ(read(), (Reading{true, 26'778})) << "nothing has come into force";
    EXPECT_EQ(set(200, same, 0), 0U);
    EXPECT_EQ(set(INT32_MIN), 0x8013U);
    EXPECT_EQ(set(INT32_MAX), 0x8013U);
}

TEST_F(PathLatencyTest, stepBeyondTheBoundIsTakenBehindARecoveryThatWasAskedFor)
{
    recover();
    time().advance(5s);
    EXPECT_EQ(set(500), 0x8013U) << "that one was not asked for";
    EXPECT_EQ(set(500), 0x8013U);
    recover();
    EXPECT_EQ(set(500), 0U);
    EXPECT_EQ(read(), (Reading{false, 27'178})) << "the DSP recovers";
    time().advance(5s);
    EXPECT_EQ(read(), (Reading{true, 27'178}));
    EXPECT_EQ(set(500), 0U);
    EXPECT_EQ(set(0), 0x8013U) << "the next step needs a reset of its own";
}

TEST_F(PathLatencyTest, everyChainWaitsForTheSlowestAsFarAsItsDelayGoes)
{
    std::uint8_t samples = 9;
    EXPECT_TRUE(dspChannel(1).rxChainDelay(Action::Write, ModemChain::MrcDiversity, samples));
    EXPECT_EQ(set(40, 100, 75), 0U);
    EXPECT_EQ(delays(), (std::array{10, 6, 9, 0, 0, 2}));
    EXPECT_EQ(set(3000), 0x8013U);
    EXPECT_EQ(delays(), (std::array{10, 6, 9, 0, 0, 2}));
    recover();
    EXPECT_EQ(set(3000), 0U);
    EXPECT_EQ(delays(), (std::array{255, 0, 9, 0, 255, 255}));
}

TEST_F(PathLatencyTest, compensationIsRefusedByARadioThatCannot)
{
    startNode({.radioType = 3});
    EXPECT_EQ(set(1), 0x8000U);
    EXPECT_EQ(node().channel(1).latency.xpicSlave, 0);
}

TEST_F(PathLatencyTest, delaysAreKeptForEachChain)
{
    for (unsigned chain = 0; chain <= 7; ++chain) {
        auto adjustment = static_cast<std::uint8_t>(10 + chain);
        auto filter = static_cast<std::uint8_t>(20 + chain);
        EXPECT_TRUE(dspChannel(1).rxChainDelay(Action::Write, static_cast<ModemChain>(chain), adjustment));
        EXPECT_TRUE(dspChannel(1).rxEqualizerFeedForwardFilterDelay(Action::Write,
                                                                    static_cast<ModemChain>(chain), filter));
    }
    const auto kept = node().channel(1).dsp.chainDelays;
    ASSERT_EQ(kept.size(), 8U);
    for (unsigned chain = 0; chain <= 7; ++chain) {
        EXPECT_EQ(kept[chain].chain, static_cast<ModemChain>(chain));
        EXPECT_EQ(kept[chain].adjFifo, 10 + chain);
        EXPECT_EQ(kept[chain].fffFifo, 20 + chain);
    }
    EXPECT_EQ(node().channel(2).dsp.chainDelays.size(), 6U);
    EXPECT_EQ(delays(), (std::array{10, 11, 12, 13, 14, 15}));
}

} // namespace
