#include "Pictures.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using zyr_ctl::EnumText;
using zyr_ctl::Line;
using zyr_ctl::Value;

const std::vector<EnumText> kModulations{{31, "4QAM"}, {81, "256QAM"}};
const std::vector<EnumText> kLinkTypes{{2, "Std"}, {3, "Xpic"}};

std::string joined(const std::vector<Line>& lines)
{
    std::string text = "\n";
    for (const Line& line : lines) {
        text += line.text + "\n";
    }
    return text;
}

TEST(SparklineTest, DrawsTheLowestAsTheLowestBarAndTheHighestAsTheHighest)
{
    EXPECT_EQ(zyr_ctl::sparkline(std::vector<std::int64_t>{-70, -35, 0, -70}), "▁▄█▁");
}

TEST(SparklineTest, DrawsEqualNumbersAsLowBarsAndNothingForNone)
{
    EXPECT_EQ(zyr_ctl::sparkline(std::vector<std::int64_t>{5, 5}), "▁▁");
    EXPECT_EQ(zyr_ctl::sparkline({}), "");
}

TEST(StatusPictureTest, ShowsWhatATechnicianLooksFor)
{
    const Value status{{"TXActualStatus", "On"},
                       {"RadioChannelStatus", "Up"},
                       {"ActualTxModulation", "256QAM"},
                       {"ActualRxModulation", "4QAM"},
                       {"ActualRFInputPower", -402},
                       {"ReportedRFOutputPower", 150},
                       {"ActualSNIR", 210},
                       {"ErroredBlocks", 3},
                       {"BackgroundBlocks", 1151},
                       {"TxFrequency", 14500000},
                       {"RxFrequency", 14920000},
                       {"ZyrState", "NormalOperation"},
                       {"HopLengthLatency", 26678},
                       {"XpicIsStarted", true},
                       {"XpicStatus", "Locked"},
                       {"ActualXpi", 99},
                       {"MimoIsStarted", false}};
    EXPECT_EQ(joined(zyr_ctl::statusPicture(2, status, std::vector<std::int64_t>{-500, -402})), R"(
Radio channel 2, node NormalOperation
Link          Up
Transmitter   On, 150, 14500000, 256QAM
Receiver      -402, 14920000, 4QAM
SNIR          210
Blocks        errored 3, background 1151
Hop latency   26678 ns
Running       XPIC Locked, XPI 99
Level         ▁█  -500 to -402
)");
}

TEST(StatusPictureTest, ShowsADashForWhatIsNotGivenAndNoLevelsForASingleOne)
{
    EXPECT_EQ(joined(zyr_ctl::statusPicture(1, Value::object(), std::vector<std::int64_t>{-402})), R"(
Radio channel 1, node -
Link          -
Transmitter   -, -, -, -
Receiver      -, -, -
SNIR          -
Blocks        errored -, background -
Hop latency   - ns
Running       none
)");
}

TEST(FramesPictureTest, ShowsALineForEachFrame)
{
    const Value answer{
        {"FrameFormatCapabilities",
         Value::array({{{"RadioFrameID", 101},
                        {"ChannelSpacing", 14000},
                        {"TelecomStd", "ETSI"},
                        {"AvailableModulations", Value::array({{{"Modulation", 31}, {"Capacity", 23}},
                                                               {{"Modulation", 81}, {"Capacity", 95}}})},
                        {"FrameLinkType", 2}},
                       {{"RadioFrameID", 201},
                        {"ChannelSpacing", 28000},
                        {"TelecomStd", "ANSI"},
                        {"AvailableModulations", Value::array()},
                        {"FrameLinkType", 99}}})}};
    const std::string text = joined(zyr_ctl::framesPicture(answer, kModulations, kLinkTypes));
    EXPECT_NE(text.find("4QAM to 256QAM"), std::string::npos) << text;
    EXPECT_NE(text.find("23 to 95"), std::string::npos) << text;
    EXPECT_NE(text.find("Std"), std::string::npos) << text;
    EXPECT_NE(text.find("99"), std::string::npos) << text;
    EXPECT_NE(text.find("none"), std::string::npos) << text;
}

TEST(CapabilityPictureTest, DrawsABarForTheMaximumPowerOfEachModulation)
{
    const Value answer{{"NumberOfChannels", 2},
                       {"MinTemp", -33},
                       {"MaxTemp", 55},
                       {"AvailableMinRFOutputPower", -50},
                       {"AvailableMaxRFOutputPower",
                        Value::array({{{"first", 31}, {"second", 250}}, {{"first", 81}, {"second", 30}}})},
                       {"MinTXFrequency", 1},
                       {"MaxTXFrequency", 2},
                       {"MinRXFrequency", 3},
                       {"MaxRXFrequency", 4},
                       {"FrequencyStepSize", 5},
                       {"FrequencyBand", 15},
                       {"FrequencySubBand", 6},
                       {"DuplexType", "Fixed"},
                       {"TapsCapable", true},
                       {"Is2T2R", true}};
    EXPECT_EQ(joined(zyr_ctl::capabilityPicture(1, answer, kModulations)), R"(
Radio channel 1 of 2
Transmit      1 to 2, step 5
Receive       3 to 4, duplex Fixed
Band          15, sub-band 6
Temperature   -33 to 55
Features      TAPS, two transmitters
Power         from -50, up to
  4QAM                   250 #########################
  256QAM                  30 ###
)");
}

} // namespace
