#include "IBasebandSdcController.h"
#include "IRssiHandler.h"
#include "ISpaceDiversityCombinerController.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using zyr_top_api::SdcPath;

/// A node with a combiner in the radio unit; the hop doesn't fade.
class DiversityTest : public SimulationFixture
{
  protected:
    DiversityTest() { startFading(0); }

    void startFading(std::int32_t fading, std::uint32_t seed = 1)
    {
        startNode({.seed = seed,
                   .radioType = 3,
                   .pathLoss_dBTenths = 905,
                   .diversityPathLoss_dBTenths = 935,
                   .fading_dBTenths = fading});
        configure(1, 103, ModulationAndCoding::QAM_4_STRONG, ModulationAndCoding::QAM_4096_LIGHT, 5'930'000,
                  6'182'000);
    }

    static ISpaceDiversityCombinerController& combiner()
    {
        return require<ISpaceDiversityCombinerController>("ISpaceDiversityCombinerController", 1);
    }

    static IBasebandSdcController& baseband()
    {
        return require<IBasebandSdcController>("IBasebandSdcController", 1);
    }

    struct Signal
    {
        std::int32_t main = 0;
        std::int32_t diversity = 0;
        std::int32_t gain = 0;

        std::int32_t better() const { return std::max(main, diversity); }
        double sum() const
        {
            return 100 * std::log10(std::pow(10, main / 100.0) + std::pow(10, diversity / 100.0));
        }
    };

    static Signal signal()
    {
        char main = 'x';
        char diversity = 'x';
        Signal result;
        combiner().getSdcSignalStatus(main, diversity, result.main, result.diversity, result.gain);
        return result;
    }

    static int level()
    {
        int value = 0;
        EXPECT_EQ(require<IRssiHandler>("IRssiHandler", 1).getRssi(value), 0U);
        return value;
    }

    void switchOn(SdcPath path)
    {
        EXPECT_EQ(combiner().setSdcPath(path), 0U);
        EXPECT_EQ(combiner().setSdcEnable(true), 0U);
        time().advance(500ms);
    }

    void calibrate()
    {
        EXPECT_EQ(combiner().setDadeCalibration(true), 0U);
        time().advance(2s);
    }
};

TEST_F(DiversityTest, mainPathServesUntilTheCombinerIsOn)
{
    EXPECT_EQ(combiner().setSdcPath(SdcPath::Diversity), 0U);
    EXPECT_EQ(combiner().setSdcEnable(true), 0U);
    time().advance(499ms);
    EXPECT_EQ(combiner().getSdcActualPath(), SdcPath::Main);
    EXPECT_EQ(level(), -705);
    time().advance(1ms);
    EXPECT_EQ(combiner().getSdcActualPath(), SdcPath::Diversity);
    EXPECT_EQ(level(), -735);
    EXPECT_EQ(signal().main, -705);
    EXPECT_EQ(signal().diversity, -735);
    EXPECT_EQ(signal().gain, 0);
    EXPECT_EQ(combiner().setSdcEnable(false), 0U);
    EXPECT_EQ(combiner().getSdcActualPath(), SdcPath::Main);
    EXPECT_EQ(level(), -705);
}

TEST_F(DiversityTest, combinationGainsMoreOnceItIsCalibrated)
{
    node().setDiversityPathLoss_dBTenths(905);
    switchOn(SdcPath::Auto);
    EXPECT_EQ(level(), -695) << "half of 3 dB, less half a dB in the combiner";
    EXPECT_EQ(signal().gain, 10);
    calibrate();
    EXPECT_EQ(level(), -680) << "3 dB, less half a dB in the combiner";
    EXPECT_EQ(signal().gain, 25);
}

TEST_F(DiversityTest, pathThatAddsNothingIsOutOfUse)
{
    switchOn(SdcPath::Auto);
    calibrate();
    EXPECT_EQ(combiner().getSdcActualPath(), SdcPath::Auto);
    node().setDiversityPathLoss_dBTenths(1205);
    EXPECT_EQ(combiner().getSdcActualPath(), SdcPath::Main);
    EXPECT_EQ(level(), -710);
    EXPECT_EQ(signal().gain, -5);
    node().setPathLoss_dBTenths(1205);
    node().setDiversityPathLoss_dBTenths(705);
    EXPECT_EQ(combiner().getSdcActualPath(), SdcPath::Diversity);
    EXPECT_EQ(level(), -510);
}

TEST_F(DiversityTest, linkSurvivesTheFadeOfEitherPathWithTheCombinerOnOnly)
{
    node().setPathLoss_dBTenths(1400);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    switchOn(SdcPath::Auto);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(dspStatus(1).getSnir(), -165);
    node().setPathLoss_dBTenths(905);
    node().setDiversityPathLoss_dBTenths(1400);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(dspStatus(1).getSnir(), -195);
    node().setPathLoss_dBTenths(1400);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
}

TEST_F(DiversityTest, nothingIsReceivedFromASilentFarEnd)
{
    switchOn(SdcPath::Auto);
    node().setFarEndTransmits(false);
    EXPECT_EQ(level(), -990);
    EXPECT_EQ(signal().main, -990);
    EXPECT_EQ(signal().diversity, -990);
    EXPECT_EQ(signal().gain, 0);
}

TEST_F(DiversityTest, combinerInTheBasebandServesThePathsThatAreOn)
{
    EXPECT_EQ(baseband().setChannels(false, true), 0U);
    EXPECT_EQ(level(), -705);
    EXPECT_EQ(baseband().start(false), 0U);
    time().advance(400ms);
    EXPECT_EQ(level(), -735);
    EXPECT_EQ(baseband().setChannels(true, false), 0U);
    EXPECT_EQ(level(), -705);
    EXPECT_EQ(baseband().setChannels(false, false), 0U);
    EXPECT_EQ(level(), -990);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    EXPECT_EQ(baseband().setChannels(true, true), 0U);
    EXPECT_EQ(level(), -702) << "half of 1.7 dB, less half a dB";
    EXPECT_EQ(baseband().getStatus().gain, 3);
    switchOn(SdcPath::Main);
    EXPECT_EQ(level(), -705) << "the radio unit's combiner comes first";
    EXPECT_EQ(baseband().getStatus().gain, 0);
}

TEST_F(DiversityTest, pathsFadeOnTheirOwnAndBySeedAlone)
{
    const auto differences = [&](std::uint32_t seed) {
        startFading(60, seed);
        std::vector<std::int32_t> result;
        for (int minute = 0; minute < 20; ++minute) {
            result.push_back(signal().main - signal().diversity);
            time().advance(60s);
        }
        return result;
    };
    const auto first = differences(1);
    const auto [least, greatest] = std::ranges::minmax(first);
    EXPECT_GT(greatest - least, 60);
    EXPECT_NE(differences(2), first);
}

TEST_F(DiversityTest, combinedLevelLiesBetweenTheBetterPathLessTheLossAndTheSum)
{
    constexpr std::int32_t loss = 5;
    startFading(40);
    switchOn(SdcPath::Auto);
    std::mt19937 random(20);
    std::uniform_int_distribution<std::int32_t> pathLoss(400, 1300);
    for (int setting = 0; setting < 1000; ++setting) {
        if (setting == 500) {
            calibrate();
        }
        node().setPathLoss_dBTenths(pathLoss(random));
        node().setDiversityPathLoss_dBTenths(pathLoss(random));
        time().advance(7s);
        const auto now = signal();
        EXPECT_GE(level(), std::max(now.better() - loss, -990)) << now.main << " " << now.diversity;
        EXPECT_LE(level(), now.sum()) << now.main << " " << now.diversity;
        EXPECT_EQ(level(), now.better() + now.gain);
    }
}

} // namespace
