#include "SecondStream.h"

#include "Joined.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{

using zyr_ctl::DescribedAnswer;
using zyr_ctl::EnumText;
using zyr_ctl::FieldDescription;
using zyr_ctl::Value;

FieldDescription enumeration(const char* name, std::vector<EnumText> texts)
{
    FieldDescription field;
    field.name = name;
    field.texts = std::move(texts);
    return field;
}

FieldDescription measure(const char* name, const char* unit)
{
    FieldDescription field;
    field.name = name;
    field.unit = unit;
    return field;
}

TEST(XpicPictureTest, ShowsReadingsWithTheirUnits)
{
    const DescribedAnswer status{{{"XpicIsStarted", true}, {"XpicStatus", "Locked"}, {"ActualSNIR", 432}},
                                 {measure("ActualSNIR", "0.1 dB")}};
    const DescribedAnswer xpic{{{"xpicControlBarOn", true},
                                {"slaveInternalAgc", 51},
                                {"slaveExternalAgc", 150},
                                {"xpicCableConnected", false},
                                {"xpicTxEnable", true},
                                {"xpicEnableExt", 1},
                                {"slaveDiffGain", 3},
                                {"xpicPreambleGet", 2},
                                {"xpdDbTenths", -5},
                                {"slaveCarrierOffsetHz", -81},
                                {"slaveSweepInProgress", 1},
                                {"calibStatus", 7}},
                               {enumeration("xpicEnableExt", {{1, "Enable_A"}}),
                                enumeration("xpicPreambleGet", {{2, "Preamble_C"}}),
                                measure("xpdDbTenths", "0.1 dB"), measure("slaveCarrierOffsetHz", "Hz")}};
    EXPECT_EQ(joined(zyr_ctl::xpicPicture(2, status, xpic)), R"(
Radio channel 2, XPIC Locked
reading                      value
link type                    Enable_A (1)
control bar                  on
preamble                     Preamble_C (2)
cable                        not connected
transmission                 on
slave sweeps                 yes
slave calibration            7
cross-polar discrimination   -0.5 dB
slave carrier offset         -81 Hz
slave internal gain control  51
slave external gain control  150
slave differential gain      3
SNIR                         43.2 dB
)");
}

TEST(MimoPictureTest, ShowsReadingsWithTheirUnits)
{
    const DescribedAnswer status{{{"MimoIsStarted", true}, {"IsMimo4x4", true}, {"MimoStatus", "Mute"}}, {}};
    const DescribedAnswer mimo{
        {{"gainDifferenceDbTenths", 15},
         {"etaTenThousands", 8940},
         {"slaveSweepInProgress", false},
         {"spatialSlaveSweepStatus", true},
         {"xpdDbTenths", 201},
         {"spatialXpdDbTenths", 198},
         {"spatialCarrierOffsetHz", 82},
         {"slaveCarrierOffsetHz", -83},
         {"spatialSlaveCarrierOffsetHz", 84},
         {"diversityMute", true},
         {"calibrationStatus", 5}},
        {measure("gainDifferenceDbTenths", "0.1 dB"), measure("etaTenThousands", "0.0001"),
         measure("xpdDbTenths", "0.1 dB"), measure("spatialXpdDbTenths", "0.1 dB"),
         measure("slaveCarrierOffsetHz", "Hz"), measure("spatialCarrierOffsetHz", "Hz"),
         measure("spatialSlaveCarrierOffsetHz", "Hz"),
         enumeration("calibrationStatus", {{2, "Success"}, {5, "WaitingToStart"}})}};
    EXPECT_EQ(joined(zyr_ctl::mimoPicture(1, status, mimo)), R"(
Radio channel 1, MIMO 4x4 Mute
reading                       value
gain difference               1.5 dB
eta                           0.8940
diversity path                muted
slave sweeps                  no
spatial slave sweeps          yes
slave discrimination          20.1 dB
spatial discrimination        19.8 dB
slave carrier offset          -83 Hz
spatial carrier offset        82 Hz
spatial slave carrier offset  84 Hz
cross-connect calibration     WaitingToStart (5)
)");
}

TEST(SecondStreamPicturesTest, ShowADashForWhatIsNotGivenAndThatNothingIsStarted)
{
    const DescribedAnswer nothing{Value::object(), {}};
    const auto xpic = zyr_ctl::xpicPicture(1, nothing, nothing);
    EXPECT_EQ(xpic.front().text, "Radio channel 1, XPIC not started");
    EXPECT_EQ(xpic[2].text, "link type                        -");
    EXPECT_EQ(xpic[3].text, "control bar                      -");
    const auto mimo =
        zyr_ctl::mimoPicture(1, {{{"MimoIsStarted", false}}, {}}, {{{"calibrationStatus", 6}}, {}});
    EXPECT_EQ(mimo.front().text, "Radio channel 1, MIMO not started");
    EXPECT_EQ(mimo.back().text, "cross-connect calibration         6");
    const auto two =
        zyr_ctl::mimoPicture(1, {{{"MimoIsStarted", true}, {"MimoStatus", "Locked"}}, {}}, nothing);
    EXPECT_EQ(two.front().text, "Radio channel 1, MIMO 2x2 Locked");
}

} // namespace
