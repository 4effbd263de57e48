#include "ISpectrumDiagnosticsController.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using zyr_top_api::SpectrumDiagnosticsResult;

/// A hop without fading: the far end comes in with -40.0 dBm.
class SpectrumTest : public SimulationFixture
{
  protected:
    static constexpr unsigned kChannelScan = 0;
    static constexpr unsigned kSubBandScan = 1;
    static constexpr unsigned kStop = 2;

    SpectrumTest() { startNode({.pathLoss_dBTenths = 600, .fading_dBTenths = 0}); }

    static ISpectrumDiagnosticsController& spectrum(unsigned channel = 1)
    {
        return require<ISpectrumDiagnosticsController>("ISpectrumDiagnosticsController", channel);
    }

    static std::vector<SpectrumDiagnosticsResult> scanned(int capacity = 500)
    {
        std::vector<SpectrumDiagnosticsResult> results(500);
        EXPECT_EQ(spectrum().getResult(capacity, results.data()), 0U);
        results.resize(static_cast<std::size_t>(capacity));
        return results;
    }

    /// What has been found: "from <frequency>", "<steps> of <width>", and then "<how often> x <level>" for
    /// each run of points with the same level. The levels are rounded to whole dB, but for a level of its
    /// own.
    static std::string picture()
    {
        const auto results = scanned();
        if (results.empty()) {
            return "nothing";
        }
        std::string text = "from " + std::to_string(results.front().Frequency);
        for (std::size_t first = 0; first < results.size();) {
            std::size_t last = first;
            while (last < results.size() && results[last].Rssi == results[first].Rssi) {
                ++last;
            }
            text += ", " + std::to_string(last - first) + " x " + std::to_string(results[first].Rssi);
            first = last;
        }
        return text + ", to " + std::to_string(results.back().Frequency);
    }

    std::string pictureOfScan(unsigned mode)
    {
        EXPECT_EQ(spectrum().scanControl(mode, 0), 0U);
        time().advance(3s);
        return picture();
    }
};

TEST_F(SpectrumTest, ChannelScanShowsTheCarrierAsWideAsItsSpacingAboveTheNoise)
{
    EXPECT_EQ(spectrum().scanControl(kChannelScan, 0), 0x8000U) << "no frequency yet";
    configure(1, 102);
    EXPECT_EQ(pictureOfScan(kChannelScan), "from 14952000, 25 x -935, 51 x -400, 25 x -935, to 15008000");
    EXPECT_EQ(scanned(7).size(), 7U);
    EXPECT_TRUE(scanned(-1).empty());
    node().setFarEndTransmits(false);
    EXPECT_EQ(pictureOfScan(kChannelScan), "from 14952000, 101 x -935, to 15008000");
}

TEST_F(SpectrumTest, ScanProgressesInTimeAndWhatItHasFoundCanBeReadMeanwhile)
{
    configure(1, 102);
    EXPECT_EQ(spectrum().getStatus(), 0);
    EXPECT_EQ(spectrum().getProgress(), 0);
    EXPECT_EQ(spectrum().scanControl(kChannelScan, 15), 0U);
    EXPECT_EQ(spectrum().getStatus(), 2);
    EXPECT_EQ(spectrum().getProgress(), 0);
    EXPECT_EQ(picture(), "nothing");
    time().advance(250ms);
    EXPECT_EQ(picture(), "from 14952000, 10 x -935, to 14957040");
    EXPECT_EQ(spectrum().getProgress(), 9);
    time().advance(2250ms);
    EXPECT_EQ(spectrum().getStatus(), 2);
    EXPECT_EQ(spectrum().getProgress(), 99);
    time().advance(25ms);
    EXPECT_EQ(spectrum().getStatus(), 4);
    EXPECT_EQ(spectrum().getProgress(), 100);
    EXPECT_EQ(spectrum().scanControl(3, 0), 0xA100U);
    EXPECT_EQ(spectrum().getStatus(), 4);
}

TEST_F(SpectrumTest, StoppedScanKeepsWhatItHasFound)
{
    configure(1, 102);
    EXPECT_EQ(spectrum().scanControl(kSubBandScan, 0), 0U);
    EXPECT_EQ(spectrum().getStatus(), 1);
    time().advance(105ms);
    EXPECT_EQ(spectrum().scanControl(kStop, 0), 0U);
    time().advance(5s);
    EXPECT_EQ(spectrum().getStatus(), 0);
    EXPECT_EQ(spectrum().getProgress(), 4);
    EXPECT_EQ(picture(), "from 14920000, 10 x -935, to 14925400");
    EXPECT_EQ(spectrum().scanControl(kChannelScan, 0), 0U);
    EXPECT_EQ(picture(), "nothing");
}

TEST_F(SpectrumTest, RunningScanTakesTheLink)
{
    configure(1, 102);
    configure(2, 102, ModulationAndCoding::QAM_4_STRONG, ModulationAndCoding::QAM_4096_LIGHT, 14'510'000,
              14'930'000);
    EXPECT_EQ(spectrum().scanControl(kChannelScan, 0), 0U);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    EXPECT_TRUE(dspStatus(2).isLinkUp());
    EXPECT_EQ(node().channel(1).receiver.level, -990);
    EXPECT_EQ(alarms(), "LinkDown 1 active 1\n");
    time().advance(1009ms);
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    time().advance(1ms);
    EXPECT_EQ(alarms(), "LinkDown 1 inactive 1\n") << "without anyone asking";
    EXPECT_TRUE(dspStatus(1).isLinkUp());

    EXPECT_EQ(spectrum().scanControl(kChannelScan, 0), 0U);
    EXPECT_EQ(alarms(), "LinkDown 1 active 2\n");
    EXPECT_EQ(spectrum().scanControl(kStop, 0), 0U);
    EXPECT_EQ(alarms(), "LinkDown 1 inactive 2\n");
}

TEST_F(SpectrumTest, SubBandScanFindsBothChannelsAndTheInterferers)
{
    configure(1, 101);
    EXPECT_EQ(pictureOfScan(kSubBandScan), "from 14920000, 89 x -965, 23 x -400, 89 x -965, to 15040000");
    EXPECT_EQ(spectrum().getStatus(), 3);

    configure(2, 101, ModulationAndCoding::QAM_4_STRONG, ModulationAndCoding::QAM_4096_LIGHT, 14'510'000,
              14'940'000);
    node().addInterferer({.frequency_kHz = 15'000'000, .width_kHz = 7'000, .level_dBmTenths = -550});
    node().addInterferer({.frequency_kHz = 15'030'000, .width_kHz = 25, .level_dBmTenths = -610});
    const auto full = pictureOfScan(kSubBandScan);
    EXPECT_EQ(full, "from 14920000, 22 x -965, 24 x -604, 43 x -965, 23 x -400, 16 x -965, 12 x -550, "
                    "43 x -965, 1 x -610, 17 x -965, to 15040000")
        << "channel 2's carrier is on the other polarisation, the narrow interferer in one point";
    EXPECT_TRUE(dspStatus(1).isLinkUp());

    node().addInterferer({.frequency_kHz = 15'000'000, .width_kHz = 14'000, .level_dBmTenths = -700});
    EXPECT_EQ(node().snapshot().interferers.size(), 2U) << "the one that was there is replaced";
    node().clearInterferers();
    EXPECT_EQ(pictureOfScan(kSubBandScan),
              "from 14920000, 22 x -965, 24 x -604, 43 x -965, 23 x -400, 89 x -965, to 15040000");
}

TEST_F(SpectrumTest, InterfererInTheChannelCostsTheLinkItsSnirAndThatOutsideDoesnt)
{
    configure(1, 102);
    const auto alone = dspStatus(1).getSnir();
    EXPECT_EQ(alone, -450);
    node().addInterferer({.frequency_kHz = 15'020'000, .width_kHz = 28'000, .level_dBmTenths = -300});
    EXPECT_EQ(dspStatus(1).getSnir(), alone);
    node().addInterferer({.frequency_kHz = 14'985'000, .width_kHz = 1'000, .level_dBmTenths = -600});
    EXPECT_EQ(dspStatus(1).getSnir(), -200);
    node().addInterferer({.frequency_kHz = 14'985'000, .width_kHz = 1'000, .level_dBmTenths = -400});
    EXPECT_EQ(dspStatus(1).getSnir(), 0);
    EXPECT_EQ(alarms(), "LinkDown 1 active 1\n");
    node().clearInterferers();
    EXPECT_EQ(dspStatus(1).getSnir(), alone);
}

TEST_F(SpectrumTest, InterfererThatCantBeIsRefused)
{
    const auto refusal = [&](const zyr_simulation::Interferer& interferer) -> std::string {
        try {
            node().addInterferer(interferer);
            return "";
        } catch (const std::invalid_argument& error) {
            return error.what();
        }
    };
    EXPECT_EQ(refusal({.frequency_kHz = 0}), "an interferer has a frequency");
    EXPECT_EQ(refusal({.frequency_kHz = 1, .width_kHz = 0}), "an interferer is 1 to 1000000 kHz wide, not 0");
    EXPECT_EQ(refusal({.frequency_kHz = 1, .width_kHz = 1'000'001}),
              "an interferer is 1 to 1000000 kHz wide, not 1000001");
    EXPECT_EQ(refusal({.frequency_kHz = 1, .level_dBmTenths = 1}),
              "an interferer has a level of -990 to 0 tenths of a dBm, not 1");
    EXPECT_EQ(refusal({.frequency_kHz = 1, .level_dBmTenths = -991}),
              "an interferer has a level of -990 to 0 tenths of a dBm, not -991");
    EXPECT_EQ(refusal({.frequency_kHz = 1, .width_kHz = 1'000'000, .level_dBmTenths = 0}), "");
    EXPECT_EQ(refusal({.frequency_kHz = std::numeric_limits<std::uint32_t>::max(), .width_kHz = 1}), "");
    for (unsigned frequency = 2; frequency < 64; ++frequency) {
        EXPECT_EQ(refusal({.frequency_kHz = frequency, .level_dBmTenths = -990}), "");
    }
    EXPECT_EQ(refusal({.frequency_kHz = 99}), "a node hears at most 64 interferers");
    EXPECT_EQ(refusal({.frequency_kHz = 1}), "") << "it replaces one";
}

TEST_F(SpectrumTest, RadioThatGoesDownEndsTheScan)
{
    configure(1, 102);
    EXPECT_EQ(spectrum().scanControl(kChannelScan, 0), 0U);
    time().advance(500ms);
    node().setRadioAvailable(1, false);
    EXPECT_EQ(spectrum().getStatus(), 0);
    EXPECT_EQ(spectrum().scanControl(kSubBandScan, 0), 0x8000U);
    node().setRadioAvailable(1, true);
    time().advance(5s);
    EXPECT_EQ(scanned().size(), 50U);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
}

TEST_F(SpectrumTest, PropertiesFollowTheRadio)
{
    EXPECT_FALSE(spectrum().getProperties().isSdcSupported);
    node().setLongHaul(true);
    EXPECT_TRUE(spectrum().getProperties().isLongHaul);
    startNode({.radioType = 2});
    EXPECT_TRUE(spectrum().getProperties().isRadioCarrierAggrCapable);
    startNode({.radioType = 3});
    EXPECT_TRUE(spectrum().getProperties().isSdcSupported);
}

} // namespace
