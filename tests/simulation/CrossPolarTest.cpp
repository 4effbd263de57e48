#include "DriverCalls.h"
#include "ICcdpController.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using zyr_top_api::LinkType;
using zyr_top_api::XpicMimoPreamble;
using zyr_top_api::XpicStatusStruct;

/// Two channels on the same frequencies, without fading. Alone each has the best SNIR that there is.
class CrossPolarTest : public SimulationFixture
{
  protected:
    CrossPolarTest()
    {
        startNode({.pathLoss_dBTenths = 600, .fading_dBTenths = 0, .farEndTxPower_dBmTenths = 200});
        configure(1, 202);
        configure(2, 202);
    }

    static ICcdpController& xpic(unsigned channel = 1)
    {
        return require<ICcdpController>("ICcdpController", channel);
    }

    void startBoth()
    {
        EXPECT_EQ(xpic(1).start(LinkType::Enable_A), 0U);
        EXPECT_EQ(xpic(2).start(LinkType::Enable_B), 0U);
        time().advance(500ms);
    }

    static int snir(unsigned channel = 1) { return -dspStatus(channel).getSnir(); }

    static std::string state(unsigned channel = 1)
    {
        std::string text;
        EXPECT_EQ(xpic(channel).getState(text), 0U);
        return text;
    }

    static std::string states() { return state(1) + " " + state(2); }

    /// The slave's readings of a channel.
    static std::string slave(unsigned channel = 1)
    {
        XpicStatusStruct status;
        EXPECT_EQ(xpic(channel).getXpicStatusStruct(status), 0U);
        std::int16_t internal = 0;
        std::int16_t external = 0;
        std::int16_t gain = 0;
        std::int16_t unused = 0;
        EXPECT_EQ(dspStatus(channel).getSlaveAgc(internal, external), 0U);
        EXPECT_EQ(dspStatus(channel).getIqSlaveImbalance(unused, gain, unused, unused, unused), 0U);
        return "xpd " + std::to_string((status.xpdDbTenths + 5) / 10) + ", sweeps " +
               std::to_string(status.slaveSweepInProgress) + ", calibrated " +
               std::to_string(status.calibStatus) + ", gains " + std::to_string(internal) + " " +
               std::to_string(external) + " " + std::to_string(gain);
    }
};

TEST_F(CrossPolarTest, PolarisationsDisturbEachOtherAndCancellingBringsNearlyAllBack)
{
    EXPECT_NEAR(snir(1), 200, 6);
    EXPECT_NEAR(snir(2), 200, 6);
    const auto disturbed = node().channel(1).receiver.rxModulation;

    startBoth();
    EXPECT_EQ(states(), "Locked Locked");
    EXPECT_NEAR(snir(1), 432, 3);
    EXPECT_NEAR(snir(2), 432, 3);
    EXPECT_NE(node().channel(1).receiver.rxModulation, disturbed);
    EXPECT_EQ(slave(), "xpd 21, sweeps 0, calibrated 1, gains 50 150 3");

    EXPECT_EQ(frequencies(2).setRxFrequency(14'920'000, 1), 0U);
    EXPECT_EQ(snir(1), 450) << "the other channel is elsewhere";
}

TEST_F(CrossPolarTest, OverlapCountsByItsShare)
{
    EXPECT_EQ(frequencies(2).setRxFrequency(14'980'000 + 28'000, 1), 0U);
    EXPECT_NEAR(snir(), 230, 6) << "half of the other channel's signal comes in";
    EXPECT_EQ(frequencies(2).setRxFrequency(14'980'000 + 56'000, 1), 0U);
    EXPECT_EQ(snir(), 450);
}

TEST_F(CrossPolarTest, DiscriminationCanBeSet)
{
    node().setCrossPolarDiscrimination_dBTenths(120);
    EXPECT_NEAR(snir(), 120, 6);
    node().setCrossPolarDiscrimination_dBTenths(0);
    EXPECT_NEAR(snir(), 0, 6);
    node().setCrossPolarDiscrimination_dBTenths(600);
    EXPECT_NEAR(snir(), 449, 1);
    EXPECT_THROW(node().setCrossPolarDiscrimination_dBTenths(-1), std::invalid_argument);
    EXPECT_THROW(node().setCrossPolarDiscrimination_dBTenths(601), std::invalid_argument);
}

TEST_F(CrossPolarTest, FarEndIsDisturbedByWhatIsSentHere)
{
    transmit(1, 100, 100);
    const auto farEnd = [&] { return node().channel(1).receiver.farEndSnir; };
    EXPECT_EQ(farEnd(), 405);
    transmit(2, 100, 100);
    EXPECT_NEAR(farEnd(), 200, 6);
    startBoth();
    EXPECT_NEAR(farEnd(), 400, 5);
}

TEST_F(CrossPolarTest, LinkTooPoorForItsModulationComesUpThroughCancelling)
{
    EXPECT_EQ(acm(1).setMinMaxModulationAndCode(ModulationAndCoding::QAM_1024, ModulationAndCoding::QAM_1024),
              0U);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    startBoth();
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(xpic().stop(), 0U);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
}

TEST_F(CrossPolarTest, OnlyPreamblesThatPairLock)
{
    using enum XpicMimoPreamble;
    startBoth();
    const std::vector<std::tuple<XpicMimoPreamble, XpicMimoPreamble, bool>> pairs{
        {Preamble_A, Preamble_A, false}, {Preamble_A, Preamble_B, true},  {Preamble_A, Preamble_C, false},
        {Preamble_A, Preamble_D, false}, {Preamble_B, Preamble_A, true},  {Preamble_B, Preamble_B, false},
        {Preamble_B, Preamble_C, false}, {Preamble_B, Preamble_D, false}, {Preamble_C, Preamble_A, false},
        {Preamble_C, Preamble_B, false}, {Preamble_C, Preamble_C, false}, {Preamble_C, Preamble_D, true},
        {Preamble_D, Preamble_A, false}, {Preamble_D, Preamble_B, false}, {Preamble_D, Preamble_C, true},
        {Preamble_D, Preamble_D, false},
    };
    for (const auto& [first, second, isPair] : pairs) {
        EXPECT_EQ(xpic(1).setPreamble(first), 0U);
        EXPECT_EQ(xpic(2).setPreamble(second), 0U);
        time().advance(5s);
        EXPECT_EQ(states(), isPair ? "Locked Locked" : "Unlocked Unlocked")
            << static_cast<int>(first) << " with " << static_cast<int>(second);
        EXPECT_NEAR(snir(), isPair ? 432 : 200, 6);
    }
    EXPECT_EQ(slave(), "xpd 0, sweeps 1, calibrated 0, gains 50 150 3") << "it goes on looking for it";
}

TEST_F(CrossPolarTest, MutedSlaveCancelsNothingAndAcquiresAnewAfterwards)
{
    startBoth();
    EXPECT_EQ(xpic().xpicMute(true), 0U);
    EXPECT_EQ(states(), "Mute Locked");
    EXPECT_NEAR(snir(1), 200, 6);
    EXPECT_NEAR(snir(2), 432, 3);
    EXPECT_EQ(slave(), "xpd 0, sweeps 0, calibrated 0, gains 50 150 3");
    EXPECT_EQ(xpic().xpicMute(false), 0U);
    EXPECT_EQ(slave(), "xpd 0, sweeps 1, calibrated 0, gains 50 150 3");
    time().advance(500ms);
    EXPECT_EQ(states(), "Locked Locked");
    EXPECT_NEAR(snir(), 432, 3);
}

TEST_F(CrossPolarTest, AcquisitionCostsTheLockAsLongAsItTakes)
{
    startBoth();
    EXPECT_EQ(xpic().xpicAcquireStart({}, {}), 0U);
    EXPECT_EQ(states(), "Unlocked Locked");
    EXPECT_EQ(slave(), "xpd 0, sweeps 1, calibrated 0, gains 50 150 3");
    time().advance(499ms);
    EXPECT_EQ(state(), "Unlocked");
    time().advance(1ms);
    EXPECT_EQ(state(), "Locked");
}

TEST_F(CrossPolarTest, ForcedLinkTypeStartsAndStopsCancelling)
{
    EXPECT_EQ(xpic().forceXpic(LinkType::Enable_C), 0U);
    time().advance(500ms);
    EXPECT_EQ(state(), "Locked");
    EXPECT_NEAR(snir(), 432, 3);
    EXPECT_EQ(xpic().forceXpic(LinkType::Disable), 0U);
    EXPECT_EQ(state(), "Unlocked");
    EXPECT_NEAR(snir(), 200, 6);
    EXPECT_EQ(slave(), "xpd 0, sweeps 0, calibrated 0, gains 50 150 3");
}

TEST_F(CrossPolarTest, NeitherEndHearsTheOtherWithoutCableOrTransmission)
{
    startBoth();
    EXPECT_EQ(writeDriver("channel.2.xpic.tx.enable", 0), 0U);
    EXPECT_EQ(states(), "Unlocked Unlocked");
    EXPECT_EQ(slave(), "xpd 0, sweeps 1, calibrated 0, gains 640 150 0");
    EXPECT_EQ(writeDriver("channel.2.xpic.tx.enable", 1), 0U);
    time().advance(500ms);
    EXPECT_EQ(states(), "Locked Locked");

    node().setXpicCableConnected(1, false);
    EXPECT_EQ(states(), "Unlocked Unlocked");
    EXPECT_NEAR(snir(2), 200, 6);
    node().setXpicCableConnected(1, true);
    time().advance(500ms);
    EXPECT_EQ(states(), "Locked Locked");
}

TEST_F(CrossPolarTest, SlaveNeedsASignalAndARadio)
{
    startBoth();
    node().setFarEndTransmits(false);
    EXPECT_EQ(states(), "Unlocked Unlocked");
    node().setFarEndTransmits(true);
    time().advance(500ms);
    EXPECT_EQ(states(), "Locked Locked");
    node().setPathLoss_dBTenths(1'060); // 4.5 dB above the noise, and then 5 dB
    EXPECT_EQ(states(), "Unlocked Unlocked");
    node().setPathLoss_dBTenths(1'055);
    time().advance(500ms);
    EXPECT_EQ(states(), "Locked Locked");
    node().setRadioAvailable(1, false);
    EXPECT_EQ(states(), "Unlocked Locked");
}

} // namespace
