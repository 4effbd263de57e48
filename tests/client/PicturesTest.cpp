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

TEST(LoopsPictureTest, ShowsALineForEachLoop)
{
    const Value answer{{"loops", Value::array({{{"loopName", "IfLoop1"}, {"closed", true}},
                                               {{"loopName", "RfLoop1"}, {"closed", false}}})}};
    EXPECT_EQ(joined(zyr_ctl::loopsPicture(answer)), R"(
loop     state
IfLoop1  closed
RfLoop1  open
)");
}

/// Of a channel that receives 64QAM and sends 4QAM.
zyr_ctl::AcmAnswers acmAnswers(int snir)
{
    return {
        .mode = {{"acmMode", 1}, {"acmModePosition", "External"}},
        .status = {{"ActualTxModulation", "4QAM"}, {"ActualRxModulation", "64QAM"}, {"ActualSNIR", snir}},
        .thresholds = {{"thresholds", Value::array({{{"modulationAndCoding", "4QAM"}, {"threshold", 70}},
                                                    {{"modulationAndCoding", "64QAM"}, {"threshold", 190}},
                                                    {{"modulationAndCoding", 81}, {"threshold", 250}}})}},
        .modes = {{0, "Active"}, {1, "Passive"}},
        .positions = {},
        .modulations = kModulations};
}

TEST(AcmPictureTest, DrawsTheThresholdsAsALadderWithThePresentSnir)
{
    EXPECT_EQ(joined(zyr_ctl::acmPicture(2, acmAnswers(213))), R"(
Radio channel 2
ACM mode      Passive, External
Transmit      4QAM
Receive       64QAM
SNIR          213
Thresholds    SNIR below which the receiver leaves the modulation
  256QAM                 250
  ----                   213  SNIR now
  64QAM                  190  received
  4QAM                    70  sent
)");
}

TEST(AcmPictureTest, DrawsAnSnirThatJustReachesAThresholdAboveIt)
{
    const auto text = joined(zyr_ctl::acmPicture(2, acmAnswers(190)));
    EXPECT_NE(text.find("SNIR now\n  64QAM "), std::string::npos) << text;
}

TEST(AcmPictureTest, MarksAModulationOfBothDirectionsTwice)
{
    auto answers = acmAnswers(10);
    answers.status["ActualTxModulation"] = "64QAM";
    const auto text = joined(zyr_ctl::acmPicture(2, answers));
    EXPECT_NE(text.find("190  received, sent\n"), std::string::npos) << text;
    EXPECT_NE(text.find("70\n  ----                    10  SNIR now\n"), std::string::npos) << text;
}

TEST(AcmPictureTest, SaysWhatTheNodeDoesNotTell)
{
    EXPECT_EQ(joined(zyr_ctl::acmPicture(1, {.mode = Value::object(),
                                             .status = Value::object(),
                                             .thresholds = {},
                                             .modes = {},
                                             .positions = {},
                                             .modulations = {}})),
              R"(
Radio channel 1
ACM mode      -, -
Transmit      -
Receive       -
SNIR          -
Thresholds    not told by this node
)");
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

TEST(CombinerPictureTest, DrawsABarForTheLevelOfEachInput)
{
    const Value answer{{"sdcOperStatus", "enabled"},
                       {"sdcDadeStatus", "calibrated"},
                       {"actualPath", "auto"},
                       {"hwErrorSdcMain", 48},
                       {"hwErrorSdcDiversity", 0},
                       {"sdcInputPowerMain", -790},
                       {"sdcInputPowerDiversity", -850},
                       {"sdcGain", 12},
                       {"sdcDadeDelay", 7}};
    EXPECT_EQ(joined(zyr_ctl::combinerPicture(2, answer)), R"(
Radio channel 2, combiner enabled
Calibration   calibrated, delay 7
Path in use   auto
Gain          12
path       level  error
main        -790      0  ##########
diversity   -850      0  #######
)");
}

TEST(CombinerPictureTest, ShowsWhatIsMissingAndNoBarForIt)
{
    EXPECT_EQ(joined(zyr_ctl::combinerPicture(1, {{"sdcInputPowerMain", -1200}, {"hwErrorSdcMain", 69}})), R"(
Radio channel 1, combiner -
Calibration   -, delay -
Path in use   -
Gain          -
path       level  error
main       -1200  E
diversity      -  -
)");
}

} // namespace
