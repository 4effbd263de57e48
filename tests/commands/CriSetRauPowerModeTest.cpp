#include "CommandTest.h"
#include "CriSetRauPowerModeImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

namespace zyr_top_api
{
namespace
{

class CriSetRauPowerModeTest : public zyr_test::CommandTest
{
  protected:
    CriSetRauPowerModeTest()
    {
        publishNode(node);
        transcript.clear();
    }

    static CriSetRauPowerMode::Command command(std::uint32_t channel, unsigned trxId, unsigned powerMode)
    {
        return {.RadioChannelID = channel,
                .rauPowerMode = {static_cast<std::uint8_t>(trxId), static_cast<std::uint8_t>(powerMode)}};
    }

    zyr_test::NodeDoubles node{transcript};
    CriSetRauPowerModeImpl impl;
};

TEST_F(CriSetRauPowerModeTest, ModeReachesTheHandlerOfTheChannel)
{
    enrol<CriSetRauPowerModeImpl>();
    tell(criSetRauPowerMode(command(2, 255, 11)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 2\n, rauPowerMode.trxId ff\n, rauPowerMode.powerMode: b\n
IRauHandler_2.setPowerMode(255, 11)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

// The entry holds the bytes as they are, the summary and the outcome in hexadecimal digits.
TEST_F(CriSetRauPowerModeTest, RequestAndStepsAreTraced)
{
    enrol<CriSetRauPowerModeImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 7);
    criSetRauPowerMode(command(1, 2, 12));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.CriSetRauPowerMode Request: RadioChannelID: 1\n, rauPowerMode.trxId 2\n, rauPowerMode.powerMode: c\n
6 ZYR.TI.CriSetRauPowerModeImpl: command.channelId=1, (uint8_t)trxId=\x02, (uint8_t)pm=\x0C
3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 1\n, rauPowerMode.trxId 2\n, rauPowerMode.powerMode: c\n
IRauHandler_1.setPowerMode(2, 12)
5 ZYR.TI.CriSetRauPowerModeImpl: CriSetRauPowerMode successfully executed: set transceiver 0x2 to powerMode 0xc
5 ZYR.COMM: CRI.CriSetRauPowerMode Response: StandardResponse Sent\n\n----------------------------------------------------\n
)x");
}

TEST_F(CriSetRauPowerModeTest, NulBytesAreTracedLikeAnyOther)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 7);
    impl.execute(command(1, 1, 0));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRauPowerModeImpl: command.channelId=1, (uint8_t)trxId=\x01, (uint8_t)pm=\x00
3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 1\n, rauPowerMode.trxId 1\n, rauPowerMode.powerMode: 0\n
IRauHandler_1.setPowerMode(1, 0)
5 ZYR.TI.CriSetRauPowerModeImpl: CriSetRauPowerMode successfully executed: set transceiver 0x1 to powerMode 0x0
)x");
}

TEST_F(CriSetRauPowerModeTest, UndefinedTransceiverIsToldAtLevel7AndTheHandlerDecides)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 7);
    node.channel2.rauHandler.onSetPowerMode.inTurn({eRAUH_S_OK, eRAUH_E_OUT_OF_RANGE});
    tell(impl.execute(command(2, 0, 3)));
    tell(impl.execute(command(2, 0, 0)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRauPowerModeImpl: command.channelId=2, (uint8_t)trxId=\x00, (uint8_t)pm=\x03
3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 2\n, rauPowerMode.trxId 0\n, rauPowerMode.powerMode: 3\n
7 ZYR.TI.CriSetRauPowerModeImpl: channel 2: rauPowerMode.trxId still undefined
IRauHandler_2.setPowerMode(0, 3)
5 ZYR.TI.CriSetRauPowerModeImpl: CriSetRauPowerMode successfully executed: set transceiver 0x0 to powerMode 0x3
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.CriSetRauPowerModeImpl: command.channelId=2, (uint8_t)trxId=\x00, (uint8_t)pm=\x00
3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 2\n, rauPowerMode.trxId 0\n, rauPowerMode.powerMode: 0\n
7 ZYR.TI.CriSetRauPowerModeImpl: channel 2: rauPowerMode.trxId still undefined
IRauHandler_2.setPowerMode(0, 0)
1 ZYR.TI.CriSetRauPowerModeImpl: Failed to set rau power mode
result 0x8000 4 "SetRauPowerMode failed: ERAUHResult = Data is out of range"
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRauPowerModeTest, ModeOfTheOtherTransceiverIsToldAtLevel7AndHandedOn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 7);
    tell(impl.execute(command(1, 1, 4)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRauPowerModeImpl: command.channelId=1, (uint8_t)trxId=\x01, (uint8_t)pm=\x04
3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 1\n, rauPowerMode.trxId 1\n, rauPowerMode.powerMode: 4\n
7 ZYR.TI.CriSetRauPowerModeImpl: channel 1: Power mode 0x4 is not valid for trxId 0x1
IRauHandler_1.setPowerMode(1, 4)
5 ZYR.TI.CriSetRauPowerModeImpl: CriSetRauPowerMode successfully executed: set transceiver 0x1 to powerMode 0x4
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRauPowerModeTest, InvalidPairIsNotToldBelowLevel7)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 6);
    impl.execute(command(1, 3, 1));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRauPowerModeImpl: command.channelId=1, (uint8_t)trxId=\x03, (uint8_t)pm=\x01
3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 1\n, rauPowerMode.trxId 3\n, rauPowerMode.powerMode: 1\n
IRauHandler_1.setPowerMode(3, 1)
5 ZYR.TI.CriSetRauPowerModeImpl: CriSetRauPowerMode successfully executed: set transceiver 0x3 to powerMode 0x1
)x");
}

// What level 7 tells of a pair, written by the modes that each transceiver has.
std::string defectOf(unsigned trxId, unsigned powerMode)
{
    static const std::map<unsigned, std::set<unsigned>> kModes{
        {1, {0, 1, 2, 3}},
        {2, {0, 4, 8, 12}},
        {255, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
    };
    char text[80] = "";
    if (trxId == 0) {
        return "rauPowerMode.trxId still undefined";
    }
    if (!kModes.contains(trxId)) {
        std::snprintf(text, sizeof text, "rauPowerMode.trxId not valid: 0x%x", trxId);
    } else if (!kModes.at(trxId).contains(powerMode)) {
        std::snprintf(text, sizeof text, "Power mode 0x%x is not valid for trxId 0x%x", powerMode, trxId);
    }
    return text;
}

TEST_F(CriSetRauPowerModeTest, EveryPairIsHandedOnAndToldAsItIs)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 7);
    for (unsigned trxId = 0; trxId <= 255; ++trxId) {
        for (unsigned powerMode = 0; powerMode <= 255; ++powerMode) {
            const std::string defect = defectOf(trxId, powerMode);
            char summary[120];
            std::snprintf(summary, sizeof summary,
                          "3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 2\n, rauPowerMode.trxId %x\n, "
                          "rauPowerMode.powerMode: %x\n",
                          trxId, powerMode);
            char done[120];
            std::snprintf(done, sizeof done,
                          "5 ZYR.TI.CriSetRauPowerModeImpl: CriSetRauPowerMode successfully executed: set "
                          "transceiver 0x%x to powerMode 0x%x",
                          trxId, powerMode);
            zyr_test::Transcript expected;
            expected.add("6 ZYR.TI.CriSetRauPowerModeImpl: command.channelId=2, (uint8_t)trxId=" +
                         std::string(1, static_cast<char>(trxId)) +
                         ", (uint8_t)pm=" + std::string(1, static_cast<char>(powerMode)));
            expected.add(summary);
            if (!defect.empty()) {
                expected.add("7 ZYR.TI.CriSetRauPowerModeImpl: channel 2: " + defect);
            }
            expected.add("IRauHandler_2.setPowerMode(" + std::to_string(trxId) + ", " +
                         std::to_string(powerMode) + ")");
            expected.add(done);

            transcript.clear();
            const StandardResponse response = impl.execute(command(2, trxId, powerMode));
            ASSERT_EQ(transcript.text(), expected.text());
            ASSERT_EQ(response.tiResult, 0U);
        }
    }
}

TEST_F(CriSetRauPowerModeTest, FailureOfTheHandlerIsNamedByItsTextOrItsNumber)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 7);
    const std::pair<unsigned, std::string> rows[] = {
        {0x8000, "General Failure"},
        {32774, "32774"},
        {32787, "Radio Path latency reset needed"},
        {32788, "32788"},
        {0xFFFFFFFF, "4294967295"},
    };
    for (const auto& [result, text] : rows) {
        node.channel1.rauHandler.onSetPowerMode = result;
        transcript.clear();
        tell(impl.execute(command(1, 1, 2)));
        EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRauPowerModeImpl: command.channelId=1, (uint8_t)trxId=\x01, (uint8_t)pm=\x02
3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 1\n, rauPowerMode.trxId 1\n, rauPowerMode.powerMode: 2\n
IRauHandler_1.setPowerMode(1, 2)
1 ZYR.TI.CriSetRauPowerModeImpl: Failed to set rau power mode
result 0x8000 4 "SetRauPowerMode failed: ERAUHResult = )x" +
                                         text + R"x("
prints StandardResponse Sent\n
)x");
    }
}

TEST_F(CriSetRauPowerModeTest, GreatestSuccessOfTheHandlerComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 7);
    node.channel1.rauHandler.onSetPowerMode = 0x7FFF;
    tell(impl.execute(command(1, 1, 2)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRauPowerModeImpl: command.channelId=1, (uint8_t)trxId=\x01, (uint8_t)pm=\x02
3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 1\n, rauPowerMode.trxId 1\n, rauPowerMode.powerMode: 2\n
IRauHandler_1.setPowerMode(1, 2)
5 ZYR.TI.CriSetRauPowerModeImpl: CriSetRauPowerMode successfully executed: set transceiver 0x1 to powerMode 0x2
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRauPowerModeTest, ChannelAboveTheCountIsRefusedBeforeThePairIsJudged)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 7);
    tell(impl.execute(command(2, 0, 16)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRauPowerModeImpl: command.channelId=2, (uint8_t)trxId=\x00, (uint8_t)pm=\x10
3 ZYR.TI.CriSetRauPowerModeImpl: RadioChannelID: 2\n, rauPowerMode.trxId 0\n, rauPowerMode.powerMode: 10\n
result 0x8000 4 "command.channelId > m_numberOfChannels"
prints StandardResponse Sent\n
)x");
    EXPECT_EQ(outcome(impl.execute(command(1, 1, 1))), "result 0x0 0 \"\"");
}

TEST_F(CriSetRauPowerModeTest, Channel0PassesTheBoundCheckAndReachesNoHandler)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 2);
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, 1, 1)); }), "IRauHandler of radio channel 0");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CriSetRauPowerModeTest, RecordStandsForTheFirstTransceiverAndMode0)
{
    EXPECT_EQ(CriSetRauPowerMode::Command().rauPowerMode.trxId, 1);
    EXPECT_EQ(CriSetRauPowerMode::Command().rauPowerMode.powerMode, 0);
}

// initialize

TEST_F(CriSetRauPowerModeTest, InitialiseTellsTheCountAtLevel6AndRefusesAnyOther)
{
    setTraceLevel("ZYR.TI.CriSetRauPowerModeImpl", 7);
    EXPECT_EQ(impl.initialize(0), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRauPowerModeImpl: numberOfChannels=0
1 ZYR.TI.CriSetRauPowerModeImpl: numberOfChannels is out of bounds
6 ZYR.TI.CriSetRauPowerModeImpl: numberOfChannels=3
1 ZYR.TI.CriSetRauPowerModeImpl: numberOfChannels is out of bounds
6 ZYR.TI.CriSetRauPowerModeImpl: numberOfChannels=2
)x");
}

TEST_F(CriSetRauPowerModeTest, SecondInitialiseIsRefusedBeforeTheRangeAndKeepsTheHandlers)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IRauHandler_2");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriSetRauPowerModeImpl: CriSetRauPowerModeImpl already initialized
1 ZYR.TI.CriSetRauPowerModeImpl: CriSetRauPowerModeImpl already initialized
)x");
    EXPECT_EQ(outcome(impl.execute(command(2, 1, 1))), "result 0x0 0 \"\"");
}

TEST_F(CriSetRauPowerModeTest, FailedInitialiseStoresTheCountAndCannotBeRepeated)
{
    withdraw("IRauHandler_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(node.channel2.rauHandler);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriSetRauPowerModeImpl: Could not find the Rau Handler interface
1 ZYR.TI.CriSetRauPowerModeImpl: CriSetRauPowerModeImpl already initialized
)x");
    EXPECT_EQ(outcome(impl.execute(command(1, 1, 1))), "result 0x0 0 \"\"");
    EXPECT_EQ(missingIn([&] { impl.execute(command(2, 1, 1)); }), "IRauHandler of radio channel 2");
}

TEST_F(CriSetRauPowerModeTest, InterfaceOfAnotherTypeUnderTheNameIsMissing)
{
    withdraw("IRauHandler_1");
    publish("IRauHandler_1", node.channel1.radio);
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriSetRauPowerModeImpl: Could not find the Rau Handler interface
)x");
}

} // namespace
} // namespace zyr_top_api
