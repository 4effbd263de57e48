// "CRI.SetRadioChannelNearEnd": the type that the DSP is asked for, of every type that a command can request,
// for every type of frame, with and without long haul.

#include "CriSetRadioChannelNearEndFixture.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace zyr_top_api
{
namespace
{

using zyr_test::failedWith;
using zyr_test::kSuccess;

constexpr unsigned kTypes = 15;

// How a command names the types, in the order of their numbers.
constexpr std::array<const char*, kTypes> kNames = {
    "Unknown",
    "Other",
    "Standard",
    "Xpic",
    "Mimo",
    "LongHaulStandard",
    "LongHaulXpic",
    "XpicTwoBoards",
    "LongHaulXpicTwoBoards",
    "Mimo2",
    "SisoCarrierAggregation",
    "XpicCarrierAggregation",
    "Mrc",
    "MrcTwoBoards",
    "MrcXpicTwoBoards",
};

// How the types are printed.
constexpr std::array<const char*, kTypes> kShortForms = {
    "Unknown", "Other", "Std",    "Xpic",   "Mimo", "LHStd", "LHXpic", "Xpic2",
    "LHXpic2", "Mimo2", "SisoCA", "XpicCA", "Mrc",  "Mrc2",  "Mrcx",
};

constexpr int kR = -1; // refused

using Table = std::array<std::array<int, kTypes>, kTypes>;

// clang-format off
// Rows: the requested type. Columns: the type of the frame.
constexpr Table kRequired = {{
    //             Unk Oth Std Xpi Mim LHS LHX Xp2 LX2 Mi2 SCA XCA Mrc Mr2 Mrx
    /* Unknown */ {{kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR}},
    /* Other   */ {{kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR}},
    /* Std     */ {{0,  0,  2,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* Xpic    */ {{0,  0,  0,  3,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* Mimo    */ {{0,  0,  0,  0,  4,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* LHStd   */ {{kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR}},
    /* LHXpic  */ {{kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR}},
    /* Xpic2   */ {{0,  0,  0,  7,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* LHXpic2 */ {{kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR}},
    /* Mimo2   */ {{0,  0,  0,  0,  9,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* SisoCA  */ {{0,  0, 10,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* XpicCA  */ {{0,  0,  0, 11,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* Mrc     */ {{0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0, 12,  0,  0}},
    /* Mrc2    */ {{0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0, 13,  0,  0}},
    /* Mrcx    */ {{0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0, 14}},
}};

constexpr Table kRequiredLongHaul = {{
    //             Unk Oth Std Xpi Mim LHS LHX Xp2 LX2 Mi2 SCA XCA Mrc Mr2 Mrx
    /* Unknown */ {{kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR}},
    /* Other   */ {{kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR}},
    /* Std     */ {{0,  0,  5,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* Xpic    */ {{0,  0,  0,  6,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* Mimo    */ {{0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* LHStd   */ {{kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR}},
    /* LHXpic  */ {{kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR}},
    /* Xpic2   */ {{0,  0,  0,  8,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* LHXpic2 */ {{kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR,  kR}},
    /* Mimo2   */ {{0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* SisoCA  */ {{0,  0, 10,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* XpicCA  */ {{0,  0,  0, 11,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0}},
    /* Mrc     */ {{0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0, 12,  0,  0}},
    /* Mrc2    */ {{0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0, 13,  0,  0}},
    /* Mrcx    */ {{0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0, 14}},
}};
// clang-format on

class NearEndRequiredTypeTest : public zyr_test::NearEndTest
{
  protected:
    NearEndRequiredTypeTest()
    {
        showAllLevels();
        node.channel1.dspApi.controlApi.onCheckDspReconfiguration = {eTI_S_OK, true};
    }

    void expectEveryCombination(bool isLongHaul, const Table& table)
    {
        node.channel1.capabilityHandler.onIsLonghaul = isLongHaul;
        for (unsigned requested = 0; requested < kTypes; ++requested) {
            for (unsigned frame = 0; frame < kTypes; ++frame) {
                SCOPED_TRACE(std::string(kNames[requested]) + " on a frame of type " + kShortForms[frame]);
                expectOne(requested, frame, isLongHaul, table[requested][frame]);
            }
        }
    }

  private:
    void expectOne(unsigned requested, unsigned frame, bool isLongHaul, int required)
    {
        transcript.clear();
        node.hardwareConfigurationHandler.onGetConfigType = {eHCH_S_OK, static_cast<FFConfigType>(frame)};
        Command command = NearEndTest::command();
        command.FFConfigType = kNames[requested];
        const std::string result = run(command);
        const std::string lines = linesWith({"getRequiredRecovery", "getConfigType returns", "aggregation",
                                             "getRequiredFF", "checkDsp", "DSP need"});
        if (required == kR) {
            EXPECT_EQ(result, failedWith(std::string("CRI.SetRadioChannelNearEnd invalid FF config type: ") +
                                         kNames[requested]));
            EXPECT_EQ(lines, "\n");
            return;
        }
        const std::string channel = "ZYR.TI.CriSetRadioChannelNearEnd: ";
        const std::string type = kShortForms[static_cast<unsigned>(required)];
        EXPECT_EQ(result, kSuccess);
        EXPECT_EQ(lines,
                  "\nIDspControlApi_1.getRequiredRecovery(" + std::to_string(requested) + ")\n7 " + channel +
                      "CH:1frameId=4711 aggregation type: " + kShortForms[requested] + "\n7 " + channel +
                      "LH:" + (isLongHaul ? "1" : "0") + " getConfigType returns: " + kShortForms[frame] +
                      "\n7 " + channel + "getRequiredFFConfigType returns: " + type +
                      "\nIDspControlApi_1.checkDspReconfiguration(" + std::to_string(required) + ")\n4 " +
                      channel + "DSP need to be reconfigured since frame format type changed to " + type +
                      " for FFID 4711\n");
    }
};

TEST_F(NearEndRequiredTypeTest, EveryCombinationWithoutLongHaul)
{
    expectEveryCombination(false, kRequired);
}

TEST_F(NearEndRequiredTypeTest, EveryCombinationOnLongHaul)
{
    expectEveryCombination(true, kRequiredLongHaul);
}

TEST_F(NearEndRequiredTypeTest, FrameOfATypeWithoutANumberOfItsOwnFitsNothing)
{
    node.hardwareConfigurationHandler.onGetConfigType = {eHCH_S_OK, static_cast<FFConfigType>(15)};
    for (const unsigned requested : {2U, 3U, 4U, 7U, 9U, 10U, 11U, 12U, 13U, 14U}) {
        Command command = NearEndTest::command();
        command.FFConfigType = kNames[requested];
        EXPECT_EQ(run(command), kSuccess);
    }
    EXPECT_EQ(count("checkDspReconfiguration(0)"), 10U);
    EXPECT_EQ(count("LH:0 getConfigType returns:\\x20"), 10U); // the blank that nothing follows
}

} // namespace
} // namespace zyr_top_api
