#include "CommandTest.h"
#include "CriGetRauPowerModeImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>

namespace zyr_top_api
{
namespace
{

class CriGetRauPowerModeTest : public zyr_test::CommandTest
{
  protected:
    CriGetRauPowerModeTest()
    {
        publishNode(node);
        transcript.clear();
    }

    static CriGetRauPowerMode::Command command(std::uint32_t channel, unsigned trxId)
    {
        return {.RadioChannelID = channel, .trxId = static_cast<std::uint8_t>(trxId)};
    }

    zyr_test::NodeDoubles node{transcript};
    CriGetRauPowerModeImpl impl;
};

TEST_F(CriGetRauPowerModeTest, ModeComesFromTheHandlerOfTheChannelAndPrintsAsARawByte)
{
    enrol<CriGetRauPowerModeImpl>();
    node.channel1.rauHandler.onGetPowerMode = {eRAUH_S_OK, 5};
    node.channel2.rauHandler.onGetPowerMode = {eRAUH_S_OK, 14};
    const auto response = tell(criGetRauPowerMode(command(2, 255)));
    EXPECT_EQ(response.RadioChannelID, 0U);
    EXPECT_EQ(response.rauPowerMode.trxId, 255);
    EXPECT_EQ(response.rauPowerMode.powerMode, 14);
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriGetRauPowerModeImpl: RadioChannelID: 2\n
IRauHandler_2.getPowerMode(255)
result 0x0 0 ""
prints RadioChannelID: 0\n, rauPowerMode.trxId 255\n, rauPowerMode.powerMode: \x0E\n
)x");
}

TEST_F(CriGetRauPowerModeTest, SummaryIsTracedBeforeTheEntry)
{
    enrol<CriGetRauPowerModeImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriGetRauPowerModeImpl", 7);
    node.channel1.rauHandler.onGetPowerMode = {eRAUH_S_OK, 12};
    criGetRauPowerMode(command(1, 2));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.CriGetRauPowerMode Request: RadioChannelID: 1\n
3 ZYR.TI.CriGetRauPowerModeImpl: RadioChannelID: 1\n
6 ZYR.TI.CriGetRauPowerModeImpl: command.channelId=1
6 ZYR.TI.CriGetRauPowerModeImpl: command.trxId=2
IRauHandler_1.getPowerMode(2)
5 ZYR.TI.CriGetRauPowerModeImpl: CriGetRauPowerMode successfully executed: rau at channelId=1 trxId=2 rauPowerMode=\x0C
5 ZYR.COMM: CRI.CriGetRauPowerMode Response: RadioChannelID: 0\n, rauPowerMode.trxId 2\n, rauPowerMode.powerMode: \x0C\n\n----------------------------------------------------\n
)x");
}

TEST_F(CriGetRauPowerModeTest, AnyBitOfTheOtherTransceiverClearsTheWholeModeAlsoInTheTrace)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetRauPowerModeImpl", 7);
    node.channel1.rauHandler.onGetPowerMode = {eRAUH_S_OK, 0x0D};
    tell(impl.execute(command(1, 2)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriGetRauPowerModeImpl: RadioChannelID: 1\n
6 ZYR.TI.CriGetRauPowerModeImpl: command.channelId=1
6 ZYR.TI.CriGetRauPowerModeImpl: command.trxId=2
IRauHandler_1.getPowerMode(2)
5 ZYR.TI.CriGetRauPowerModeImpl: CriGetRauPowerMode successfully executed: rau at channelId=1 trxId=2 rauPowerMode=\x00
result 0x0 0 ""
prints RadioChannelID: 0\n, rauPowerMode.trxId 2\n, rauPowerMode.powerMode: \x00\n
)x");
}

TEST_F(CriGetRauPowerModeTest, UnknownTransceiverHasMode0WhateverTheHandlerReturns)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    node.channel1.rauHandler.onGetPowerMode = {eRAUH_S_OK, 1};
    tell(impl.execute(command(1, 3)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriGetRauPowerModeImpl: RadioChannelID: 1\n
IRauHandler_1.getPowerMode(3)
result 0x0 0 ""
prints RadioChannelID: 0\n, rauPowerMode.trxId 3\n, rauPowerMode.powerMode: \x00\n
)x");
}

// The modes that are kept, written one by one.
TEST_F(CriGetRauPowerModeTest, EveryModeOfEveryTransceiverIsKeptOrCleared)
{
    const std::set<unsigned> upTo15{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    const std::map<unsigned, std::set<unsigned>> kept{
        {0, upTo15}, {1, {0, 1, 2, 3}}, {2, {0, 4, 8, 12}}, {255, upTo15}};
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    for (unsigned trxId = 0; trxId <= 255; ++trxId) {
        for (unsigned powerMode = 0; powerMode <= 255; ++powerMode) {
            node.channel1.rauHandler.onGetPowerMode = {eRAUH_S_OK, static_cast<unsigned char>(powerMode)};
            const auto response = impl.execute(command(1, trxId));
            const bool isKept = kept.contains(trxId) && kept.at(trxId).contains(powerMode);
            ASSERT_EQ(response.tiResult, 0U);
            ASSERT_EQ(response.rauPowerMode.trxId, trxId);
            ASSERT_EQ(response.rauPowerMode.powerMode, isKept ? powerMode : 0U) << trxId << " " << powerMode;
        }
    }
}

TEST_F(CriGetRauPowerModeTest, ModeIs0BeforeTheHandlerIsAsked)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    node.channel1.rauHandler.onGetPowerMode.doInstead([](unsigned char& mode) {
        EXPECT_EQ(mode, 0);
        return eRAUH_S_OK; // and leaves it
    });
    EXPECT_EQ(impl.execute(command(1, 1)).rauPowerMode.powerMode, 0);
}

TEST_F(CriGetRauPowerModeTest, FailureOfTheHandlerIsNamedByItsTextOrItsNumber)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetRauPowerModeImpl", 7);
    const std::pair<unsigned, std::string> rows[] = {
        {0x8000, "General Failure"},
        {32774, "32774"},
        {32787, "Radio Path latency reset needed"},
        {32788, "32788"},
        {0xFFFFFFFF, "4294967295"},
    };
    for (const auto& [result, name] : rows) {
        node.channel1.rauHandler.onGetPowerMode = {result, 2};
        const std::string text = "GetRauPowerMode failed: ERAUHResult = " + name;
        transcript.clear();
        const auto response = tell(impl.execute(command(1, 2)));
        EXPECT_EQ(response.rauPowerMode.trxId, 1);
        EXPECT_EQ(response.rauPowerMode.powerMode, 0);
        EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriGetRauPowerModeImpl: RadioChannelID: 1\n
6 ZYR.TI.CriGetRauPowerModeImpl: command.channelId=1
6 ZYR.TI.CriGetRauPowerModeImpl: command.trxId=2
IRauHandler_1.getPowerMode(2)
1 ZYR.TI.CriGetRauPowerModeImpl: )x" + text +
                                         R"x(
result 0x8000 4 ")x" + text + R"x("
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: )x" +
                                         text + "\n");
    }
}

TEST_F(CriGetRauPowerModeTest, GreatestSuccessOfTheHandlerComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetRauPowerModeImpl", 7);
    node.channel1.rauHandler.onGetPowerMode = {0x7FFF, 3};
    tell(impl.execute(command(1, 1)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriGetRauPowerModeImpl: RadioChannelID: 1\n
6 ZYR.TI.CriGetRauPowerModeImpl: command.channelId=1
6 ZYR.TI.CriGetRauPowerModeImpl: command.trxId=1
IRauHandler_1.getPowerMode(1)
5 ZYR.TI.CriGetRauPowerModeImpl: CriGetRauPowerMode successfully executed: rau at channelId=1 trxId=1 rauPowerMode=\x03
result 0x0 0 ""
prints RadioChannelID: 0\n, rauPowerMode.trxId 1\n, rauPowerMode.powerMode: \x03\n
)x");
}

TEST_F(CriGetRauPowerModeTest, ChannelAboveTheCountIsRefused)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetRauPowerModeImpl", 7);
    tell(impl.execute(command(2, 1)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriGetRauPowerModeImpl: RadioChannelID: 2\n
6 ZYR.TI.CriGetRauPowerModeImpl: command.channelId=2
6 ZYR.TI.CriGetRauPowerModeImpl: command.trxId=1
result 0xA002 3 "RadioChannelID > m_numberOfChannels"
prints tiResult: eTI_E_PARAMETER_INVALID, faultCode: 3, faultString: RadioChannelID > m_numberOfChannels
)x");
    EXPECT_EQ(outcome(impl.execute(command(1, 1))), "result 0x0 0 \"\"");
}

TEST_F(CriGetRauPowerModeTest, ChannelWithoutAHandlerIsToldSo)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetRauPowerModeImpl", 7);
    tell(impl.execute(command(0, 1)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriGetRauPowerModeImpl: RadioChannelID: 0\n
6 ZYR.TI.CriGetRauPowerModeImpl: command.channelId=0
6 ZYR.TI.CriGetRauPowerModeImpl: command.trxId=1
1 ZYR.TI.CriGetRauPowerModeImpl: CRI.GetRauPowerMode, rau handler not available
result 0x8000 4 "CRI.GetRauPowerMode, rau handler not available"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRauPowerMode, rau handler not available
)x");
}

// initialize

TEST_F(CriGetRauPowerModeTest, InitialiseTellsTheCountAtLevel6AndRefusesAnyOther)
{
    setTraceLevel("ZYR.TI.CriGetRauPowerModeImpl", 7);
    EXPECT_EQ(impl.initialize(0), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriGetRauPowerModeImpl: numberOfChannels=0
1 ZYR.TI.CriGetRauPowerModeImpl: numberOfChannels is out of bounds
6 ZYR.TI.CriGetRauPowerModeImpl: numberOfChannels=3
1 ZYR.TI.CriGetRauPowerModeImpl: numberOfChannels is out of bounds
6 ZYR.TI.CriGetRauPowerModeImpl: numberOfChannels=2
)x");
}

TEST_F(CriGetRauPowerModeTest, SecondInitialiseIsRefusedBeforeTheRangeAndKeepsTheHandlers)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IRauHandler_2");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriGetRauPowerModeImpl: CriGetRauPowerModeImpl already initialized
1 ZYR.TI.CriGetRauPowerModeImpl: CriGetRauPowerModeImpl already initialized
)x");
    EXPECT_EQ(outcome(impl.execute(command(2, 1))), "result 0x0 0 \"\"");
}

TEST_F(CriGetRauPowerModeTest, FailedInitialiseStoresTheCountAndCannotBeRepeated)
{
    withdraw("IRauHandler_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(node.channel2.rauHandler);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriGetRauPowerModeImpl: Could not find the Rau Handler interface
1 ZYR.TI.CriGetRauPowerModeImpl: CriGetRauPowerModeImpl already initialized
)x");
    EXPECT_EQ(outcome(impl.execute(command(1, 1))), "result 0x0 0 \"\"");
    EXPECT_EQ(outcome(impl.execute(command(2, 1))),
              "result 0x8000 4 \"CRI.GetRauPowerMode, rau handler not available\"");
}

TEST_F(CriGetRauPowerModeTest, InterfaceOfAnotherTypeUnderTheNameIsMissing)
{
    withdraw("IRauHandler_1");
    publish("IRauHandler_1", node.channel1.radio);
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriGetRauPowerModeImpl: Could not find the Rau Handler interface
)x");
}

} // namespace
} // namespace zyr_top_api
