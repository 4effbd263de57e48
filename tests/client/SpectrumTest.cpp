#include "Spectrum.h"

#include "Joined.h"
#include "Refusal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace
{

using zyr_ctl::peaksOf;
using zyr_ctl::SpectrumPeak;
using zyr_ctl::SpectrumPoint;
using zyr_ctl::Value;

// Points 100 kHz apart from 1 MHz on.
std::vector<SpectrumPoint> points(const std::vector<std::int64_t>& levels)
{
    std::vector<SpectrumPoint> all;
    for (const std::int64_t level : levels) {
        all.push_back({1000 + 100 * static_cast<std::int64_t>(all.size()), level});
    }
    return all;
}

std::string peaks(const std::vector<std::int64_t>& levels)
{
    std::string text;
    for (const SpectrumPeak& peak : peaksOf(points(levels))) {
        text += (text.empty() ? "" : ", ") + std::to_string(peak.frequency_kHz) + " at " +
                std::to_string(peak.level_dBmTenths) + " over " + std::to_string(peak.width_kHz);
    }
    return text;
}

Value answer(const std::vector<std::int64_t>& levels)
{
    Value result = Value::array();
    for (const SpectrumPoint& point : points(levels)) {
        result.push_back({{"Frequency", point.frequency_kHz}, {"Rssi", point.level_dBmTenths}});
    }
    return {{"Status", "channel-scan-finished"}, {"Progress", 100}, {"Result", result}};
}

TEST(PeaksTest, AreNoneInNoiseAndInNothing)
{
    EXPECT_EQ(peaks({}), "");
    EXPECT_EQ(peaks({-900}), "");
    EXPECT_EQ(peaks({-900, -900, -900, -900}), "");
    EXPECT_EQ(peaks({-900, -890, -910, -905, -880}), "");
}

TEST(PeaksTest, HaveTheirMiddleAndTheirWidthAt3dBBelow)
{
    EXPECT_EQ(peaks({-900, -900, -500, -900, -900, -900}), "1200 at -500 over 100");
    EXPECT_EQ(peaks({-900, -529, -500, -500, -529, -530, -900, -900, -900}), "1250 at -500 over 300");
}

TEST(PeaksTest, StandSixDecibelsOutOfTheNoise)
{
    EXPECT_EQ(peaks({-900, -900, -840, -900, -900, -900}), "1200 at -840 over 100");
    EXPECT_EQ(peaks({-900, -900, -841, -900, -900, -900}), "");
}

TEST(PeaksTest, StandThreeDecibelsOutOfTheirSurroundings)
{
    EXPECT_EQ(peaks({-900, -900, -500, -530, -500, -900, -900, -900}),
              "1200 at -500 over 100, 1400 at -500 over 100");
    EXPECT_EQ(peaks({-900, -900, -500, -529, -500, -900, -900, -900}), "1300 at -500 over 200")
        << "of two of one height that belong together the first counts";
    EXPECT_EQ(peaks({-900, -900, -510, -539, -500, -900, -900, -900}), "1400 at -500 over 100");
    EXPECT_EQ(peaks({-900, -900, -510, -540, -500, -900, -900, -900}),
              "1200 at -510 over 100, 1400 at -500 over 100");
}

TEST(PeaksTest, CountAtTheEndsToo)
{
    EXPECT_EQ(peaks({-500, -900, -900, -900, -900, -600}), "1000 at -500 over 100, 1500 at -600 over 100");
}

TEST(PeaksTest, AreTheTenHighestInTheOrderOfTheirFrequencies)
{
    std::vector<std::int64_t> levels;
    for (const int level : {500, 501, 502, 503, 504, 505, 506, 507, 508, 509, 510, 511}) {
        levels.insert(levels.end(), {-900, -level, -900});
    }
    const auto found = peaksOf(points(levels));
    ASSERT_EQ(found.size(), 10U);
    EXPECT_EQ(found.front(), (SpectrumPeak{1100, -500, 100}));
    EXPECT_EQ(found.back(), (SpectrumPeak{1100 + 9 * 300, -509, 100}));
}

TEST(SpectrumPictureTest, DrawsLevelOverFrequencyInBlocks)
{
    EXPECT_EQ(joined(zyr_ctl::spectrumPicture(2, answer({-900, -900, -450, -450, -455, -900, -600, -900}),
                                              {.isAscii = false, .columns = 80})),
              R"(
Radio channel 2, channel-scan-finished, 8 points
 -40 dBm |
         |  ▆▆▅
         |  ███
         |  ███
         |  ███ ▁
         |  ███ █
 -65 dBm |  ███ █
         |  ███ █
         |  ███ █
         |  ███ █
         |  ███ █
         |▁▁███▁█▁
 -90 dBm +--------
          1.000 1.700 MHz

peak (MHz)  level (dBm)  width (MHz)
     1.300        -45.0        0.200
     1.600        -60.0        0.100
)");
}

TEST(SpectrumPictureTest, DrawsInAsciiAndGivesPointsThatShareAColumnTheHighest)
{
    std::vector<std::int64_t> levels(80, -893);
    levels[41] = -700;
    EXPECT_EQ(joined(zyr_ctl::spectrumPicture(1, answer(levels), {.isAscii = true, .columns = 50})),
              R"(
Radio channel 1, channel-scan-finished, 80 points
 -70 dBm |                    #
         |                    #
         |                    #
         |                    #
         |                    #
         |                    #
 -80 dBm |                    #
         |                    #
         |                    #
         |                    #
         |                    #
         |....................#...................
 -90 dBm +----------------------------------------
          1.000            4.950             8.900 MHz

peak (MHz)  level (dBm)  width (MHz)
     5.100        -70.0        0.100
)");
}

TEST(SpectrumPictureTest, ShowsThatThereIsNothing)
{
    EXPECT_EQ(joined(zyr_ctl::spectrumPicture(1, Value{{"Status", "scan-not-started"}}, {})),
              "\nRadio channel 1, scan-not-started, 0 points\n");
    const auto lines = zyr_ctl::spectrumPicture(1, answer({-900, -900}), {});
    EXPECT_EQ(lines.back().text, "No peaks");
}

TEST(SpectrumPictureTest, LetsNothingSteerTheTerminal)
{
    EXPECT_EQ(joined(zyr_ctl::spectrumPicture(1, Value{{"Status", "\x1b[2J"}}, {})),
              "\nRadio channel 1, \\x1b[2J, 0 points\n");
}

TEST(SpectrumPictureTest, RefusesNumbersThatNoReceiverCanHave)
{
    const auto withLevel = [](std::int64_t level) {
        return Value{{"Result", {{{"Frequency", 1000}, {"Rssi", level}}}}};
    };
    const auto refusal = [](const Value& answer) {
        return zyr_ctl::test::refusalOf([&] { zyr_ctl::spectrumPicture(1, answer, {}); },
                                        zyr_ctl::ExitStatus::Protocol);
    };
    EXPECT_EQ(zyr_ctl::pointsOf(withLevel(INT32_MAX)).at(0).level_dBmTenths, INT32_MAX);
    EXPECT_EQ(zyr_ctl::pointsOf(withLevel(INT32_MIN)).at(0).level_dBmTenths, INT32_MIN);
    EXPECT_EQ(refusal(withLevel(INT32_MAX + std::int64_t{1})),
              "the node answers with a Rssi of 2147483648, which no receiver can have");
    EXPECT_EQ(refusal(withLevel(INT32_MIN - std::int64_t{1})),
              "the node answers with a Rssi of -2147483649, which no receiver can have");
    EXPECT_EQ(refusal({{"Result", {{{"Frequency", INT64_MAX}}}}}),
              "the node answers with a Frequency of 9223372036854775807, which no receiver can have");
}

TEST(SpectrumCsvTest, HasAHeadingAndALineForEachPoint)
{
    EXPECT_EQ(joined(zyr_ctl::spectrumCsv(answer({-900, -450}))), "\nFrequency,Rssi\n1000,-900\n1100,-450\n");
    EXPECT_EQ(joined(zyr_ctl::spectrumCsv(Value::object())), "\nFrequency,Rssi\n");
}

TEST(ProgressBarTest, FillsWithThePercentage)
{
    const std::string blank(20, ' ');
    EXPECT_EQ(zyr_ctl::progressBar(0, true), "[" + blank + blank + "] 0 %");
    EXPECT_EQ(zyr_ctl::progressBar(50, true), "[" + std::string(20, '#') + blank + "] 50 %");
    EXPECT_EQ(zyr_ctl::progressBar(100, true), "[" + std::string(40, '#') + "] 100 %");
    EXPECT_EQ(zyr_ctl::progressBar(4, false), "[█▄" + blank + std::string(18, ' ') + "] 4 %");
    EXPECT_EQ(zyr_ctl::progressBar(250, true), "[" + std::string(40, '#') + "] 250 %");
}

} // namespace
