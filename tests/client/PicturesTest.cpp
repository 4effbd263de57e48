#include "Pictures.h"

#include "Joined.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using zyr_ctl::Value;

/// The fields of an answer, as a node describes them.
zyr_ctl::Fields fields(const std::string& json)
{
    return zyr_ctl::readCommand(Value::parse(R"({"name": "A", "response": [)" + json + "]}")).response;
}

const std::string kModulationTexts =
    R"("texts": [{"number": 31, "text": "4QAM"}, {"number": 81, "text": "256QAM"}])";

const zyr_ctl::Fields kStatusFields = fields(R"(
    {"name": "ActualRFInputPower", "type": "int", "unit": "0.1 dBm"},
    {"name": "ReportedRFOutputPower", "type": "int", "unit": "0.1 dBm"},
    {"name": "ActualSNIR", "type": "int", "unit": "0.1 dB"},
    {"name": "ActualXpi", "type": "int", "unit": "0.1 dB"},
    {"name": "TxFrequency", "type": "int", "unit": "kHz"},
    {"name": "RxFrequency", "type": "int", "unit": "kHz"},
    {"name": "HopLengthLatency", "type": "int", "unit": "ns"})");

TEST(SparklineTest, DrawsTheLowestAsTheLowestBarAndTheHighestAsTheHighest)
{
    EXPECT_EQ(zyr_ctl::sparkline(std::vector<std::int64_t>{-70, -35, 0, -70}), "▁▄█▁");
}

TEST(SparklineTest, DrawsEqualNumbersAsLowBarsAndNothingForNone)
{
    EXPECT_EQ(zyr_ctl::sparkline(std::vector<std::int64_t>{5, 5}), "▁▁");
    EXPECT_EQ(zyr_ctl::sparkline({}), "");
}

TEST(SparklineTest, TakesAnyNumbers)
{
    EXPECT_EQ(zyr_ctl::sparkline(std::vector<std::int64_t>{INT64_MIN, 0, INT64_MAX}), "▁▄█");
    EXPECT_EQ(zyr_ctl::sparkline(std::vector<std::int64_t>{INT64_MAX, INT64_MAX}), "▁▁");
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
    EXPECT_EQ(joined(zyr_ctl::statusPicture(2, status, kStatusFields, std::vector<std::int64_t>{-500, -402})),
              R"(
Radio channel 2, node NormalOperation
Link          Up
Transmitter   On, 15.0 dBm, 14 500.000 MHz, 256QAM
Receiver      -40.2 dBm, 14 920.000 MHz, 4QAM
SNIR          21.0 dB
Blocks        errored 3, background 1151
Hop latency   26.7 µs
Running       XPIC Locked, XPI 9.9 dB
Level         ▁█  -50.0 dBm to -40.2 dBm
)");
}

TEST(StatusPictureTest, ShowsADashForWhatIsNotGivenAndNoLevelsForASingleOne)
{
    EXPECT_EQ(joined(zyr_ctl::statusPicture(1, Value::object(), {}, std::vector<std::int64_t>{-402})), R"(
Radio channel 1, node -
Link          -
Transmitter   -, -, -, -
Receiver      -, -, -
SNIR          -
Blocks        errored -, background -
Hop latency   -
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
                        {"AvailableModulations", Value::array({{{"Modulation", 31}, {"Capacity", 23000}},
                                                               {{"Modulation", 81}, {"Capacity", 95000}}})},
                        {"FrameLinkType", 2}},
                       {{"RadioFrameID", 201},
                        {"ChannelSpacing", 28000},
                        {"TelecomStd", "ANSI"},
                        {"AvailableModulations", Value::array()},
                        {"FrameLinkType", 99}}})}};
    const auto described =
        fields(R"({"name": "FrameFormatCapabilities", "type": "array", "element": {"type": "struct",
        "fields": [{"name": "ChannelSpacing", "type": "int", "unit": "kHz"},
                   {"name": "FrameLinkType", "type": "int", "texts": [{"number": 2, "text": "Std"}]},
                   {"name": "AvailableModulations", "type": "array", "element": {"type": "struct", "fields": [
                       {"name": "Modulation", "type": "int", )" +
               kModulationTexts + R"(},
                       {"name": "Capacity", "type": "int", "unit": "kbit/s"}]}}]}})");
    EXPECT_EQ(joined(zyr_ctl::framesPicture(answer, described)), R"(
frame  type  standard  spacing     modulations     capacity
  101  Std   ETSI      14.000 MHz  4QAM to 256QAM  23.000 to 95.000 Mbit/s
  201  99    ANSI      28.000 MHz  none            -
)");
    EXPECT_EQ(joined(zyr_ctl::framesPicture(answer, {})), R"(
frame  type  standard  spacing  modulations  capacity
  101     2  ETSI        14000  31 to 81     23 000 to 95 000
  201    99  ANSI        28000  none         -
)");
}

TEST(EventsPictureTest, ShowsALineForEachAlarm)
{
    const auto alarm = [](const char* name, bool isActive, int channel) {
        return Value{{"eventName", name},
                     {"isActive", isActive},
                     {"numberOfTimesEventHasBeenActive", 12},
                     {"radioChannelId", channel}};
    };
    const Value answer{{"events", Value::array({alarm("LinkDown", true, 2), alarm("LoopClosed", false, 0)})}};
    EXPECT_EQ(joined(zyr_ctl::eventsPicture(answer)), R"(
state    alarm       channel  times
raised   LinkDown          2     12
cleared  LoopClosed        -     12
)");
    EXPECT_EQ(joined(zyr_ctl::eventsPicture(Value::object())), "\nno alarms\n");
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
        .mode = {{{"acmMode", 1}, {"acmModePosition", "External"}},
                 fields(
                     R"({"name": "acmMode", "type": "int", "texts": [{"number": 1, "text": "Passive"}]})")},
        .status = {{{"ActualTxModulation", "4QAM"}, {"ActualRxModulation", "64QAM"}, {"ActualSNIR", snir}},
                   kStatusFields},
        .thresholds = {
            {{"thresholds", Value::array({{{"modulationAndCoding", "4QAM"}, {"threshold", 70}},
                                          {{"modulationAndCoding", "64QAM"}, {"threshold", 190}},
                                          {{"modulationAndCoding", 81}, {"threshold", 250}}})}},
            fields(R"({"name": "thresholds", "type": "array", "element": {"type": "struct", "fields": [
                {"name": "modulationAndCoding", "type": "int", )" +
                   kModulationTexts + "}]}}")}};
}

TEST(AcmPictureTest, DrawsTheThresholdsAsALadderWithThePresentSnir)
{
    EXPECT_EQ(joined(zyr_ctl::acmPicture(2, acmAnswers(213))), R"(
Radio channel 2
ACM mode      Passive, External
Transmit      4QAM
Receive       64QAM
SNIR          21.3 dB
Thresholds    SNIR below which the receiver leaves the modulation
  256QAM               25.0 dB
  ----                 21.3 dB  SNIR now
  64QAM                19.0 dB  received
  4QAM                  7.0 dB  sent
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
    answers.status.answer["ActualTxModulation"] = "64QAM";
    const auto text = joined(zyr_ctl::acmPicture(2, answers));
    EXPECT_NE(text.find("19.0 dB  received, sent\n"), std::string::npos) << text;
    EXPECT_NE(text.find("7.0 dB\n  ----                  1.0 dB  SNIR now\n"), std::string::npos) << text;
}

TEST(AcmPictureTest, SaysWhatTheNodeDoesNotTell)
{
    EXPECT_EQ(joined(zyr_ctl::acmPicture(
                  1, {.mode = {Value::object(), {}}, .status = {Value::object(), {}}, .thresholds = {}})),
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
                       {"MinTXFrequency", 14500000},
                       {"MaxTXFrequency", 14620000},
                       {"MinRXFrequency", 3},
                       {"MaxRXFrequency", 4},
                       {"FrequencyStepSize", 250},
                       {"FrequencyBand", 15},
                       {"FrequencySubBand", 6},
                       {"DuplexType", "Fixed"},
                       {"TapsCapable", true},
                       {"Is2T2R", true}};
    const auto described =
        fields(R"({"name": "MinTXFrequency", "type": "int", "unit": "kHz"},
        {"name": "MaxTXFrequency", "type": "int", "unit": "kHz"},
        {"name": "FrequencyStepSize", "type": "int", "unit": "kHz"},
        {"name": "MinTemp", "type": "int", "unit": "degC"}, {"name": "MaxTemp", "type": "int", "unit": "degC"},
        {"name": "AvailableMinRFOutputPower", "type": "int", "unit": "0.1 dBm"},
        {"name": "AvailableMaxRFOutputPower", "type": "array", "unit": "0.1 dBm", "element": {"type": "struct", "fields": [
            {"name": "first", "type": "int", )" +
               kModulationTexts + R"(}, {"name": "second", "type": "int", "unit": "0.1 dBm"}]}})");
    EXPECT_EQ(joined(zyr_ctl::capabilityPicture(1, answer, described)), R"(
Radio channel 1 of 2
Transmit      14 500.000 MHz to 14 620.000 MHz, step 250 kHz
Receive       3 to 4, duplex Fixed
Band          15, sub-band 6
Temperature   -33 °C to 55 °C
Features      TAPS, two transmitters
Power         from -5.0 dBm, up to
  4QAM                25.0 dBm #########################
  256QAM               3.0 dBm ###
)");
}

TEST(CapabilityPictureTest, TellsTheLeastPowerAloneWithoutMaximumPowers)
{
    EXPECT_EQ(joined(zyr_ctl::capabilityPicture(2, {{"AvailableMinRFOutputPower", -50}}, {})), R"(
Radio channel 2 of -
Transmit      - to -, step -
Receive       - to -, duplex -
Band          -, sub-band -
Temperature   - to -
Features      none
Power         from -50
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
    const auto described = fields(R"({"name": "sdcInputPowerMain", "type": "int", "unit": "0.1 dBm"},
        {"name": "sdcInputPowerDiversity", "type": "int", "unit": "0.1 dBm"},
        {"name": "sdcGain", "type": "int", "unit": "0.1 dB"})");
    EXPECT_EQ(joined(zyr_ctl::combinerPicture(2, answer, described)), R"(
Radio channel 2, combiner enabled
Calibration   calibrated, delay 7
Path in use   auto
Gain          1.2 dB
path       level      error
main       -79.0 dBm      0  ##########
diversity  -85.0 dBm      0  #######
)");
}

TEST(CombinerPictureTest, ShowsWhatIsMissingAndNoBarForIt)
{
    EXPECT_EQ(joined(zyr_ctl::combinerPicture(1, {{"sdcInputPowerMain", -1200}, {"hwErrorSdcMain", 69}}, {})),
              R"(
Radio channel 1, combiner -
Calibration   -, delay -
Path in use   -
Gain          -
path       level  error
main       -1200  E
diversity      -  -
)");
}

TEST(CombinerPictureTest, HasAFullBarForLevelsThatNoReceiverHas)
{
    EXPECT_EQ(joined(zyr_ctl::combinerPicture(
                  1, {{"sdcInputPowerMain", INT64_MAX}, {"sdcInputPowerDiversity", INT64_MIN}}, {})),
              R"(
Radio channel 1, combiner -
Calibration   -, delay -
Path in use   -
Gain          -
path                      level  error
main        9223372036854775807      -  ############################################################
diversity  -9223372036854775808      -
)");
}

const zyr_ctl::PpsAnswers kPulse{
    .calibration = {{{"ppsCalibStatus", 5}, {"ppsCalibReasonOfFailure", 3}},
                    fields(R"({"name": "ppsCalibStatus", "type": "int",
                               "texts": [{"number": 4, "text": "Successful"}, {"number": 5, "text": "Failed"}]},
                              {"name": "ppsCalibReasonOfFailure", "type": "int",
                               "texts": [{"number": 3, "text": "SlaveLOL"}]})")},
    .hopLength = {{{"ppsHopLengthTime", 26'678}}, {}},
    .settings = {{{"source", 1}, {"offset_ns", 120}, {"outputMode", 2}},
                 fields(R"({"name": "source", "type": "int", "texts": [{"number": 1, "text": "External"}]},
                           {"name": "offset_ns", "type": "int", "unit": "ns"},
                           {"name": "outputMode", "type": "int", "texts": [{"number": 2, "text": "Auto"}]})")},
    .noHopLength = {}};

TEST(PpsPictureTest, ShowsTheHopAsTimeAndWayAndWhyACalibrationFailed)
{
    EXPECT_EQ(joined(zyr_ctl::ppsPicture(2, kPulse, "Failed 3 s")), R"(
Radio channel 2
Source        External, offset 120 ns
Output        Auto
Calibration   Failed, SlaveLOL
Hop length    26 678 ns, 7.998 km, radio units included
Progress      Failed 3 s
)");
}

TEST(PpsPictureTest, LeavesTheReasonOutForACalibrationThatHasNotFailed)
{
    auto answers = kPulse;
    answers.calibration.answer["ppsCalibStatus"] = 4;
    answers.hopLength.answer["ppsHopLengthTime"] = 0;
    EXPECT_EQ(joined(zyr_ctl::ppsPicture(1, answers, "")), R"(
Radio channel 1
Source        External, offset 120 ns
Output        Auto
Calibration   Successful
Hop length    0 ns, 0.000 km, radio units included
)");
}

TEST(PpsPictureTest, TellsWhatIsMissing)
{
    EXPECT_EQ(joined(zyr_ctl::ppsPicture(
                  1, {.calibration = {}, .hopLength = {}, .settings = {}, .noHopLength = "no \x1b"}, "")),
              R"(
Radio channel 1
Source        not told by this node
Output        not told by this node
Calibration   -
Hop length    none: no \x1b
)");
    EXPECT_EQ(
        joined(zyr_ctl::ppsPicture(
            1, {.calibration = {}, .hopLength = {}, .settings = {{{"source", 1}}, {}}, .noHopLength = {}},
            "")),
        R"(
Radio channel 1
Source        1, offset -
Output        -
Calibration   -
Hop length    -
)");
}

} // namespace
