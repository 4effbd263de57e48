#include "CommandTest.h"
#include "CriGetIsRau2T2RImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CriGetIsRau2T2RTest : public zyr_test::CommandTest
{
  protected:
    CriGetIsRau2T2RTest()
    {
        publishNode(node);
        transcript.clear();
    }

    static CriGetIsRau2T2R::Command command(std::uint32_t channel) { return {.RadioChannelID = channel}; }

    zyr_test::NodeDoubles node{transcript};
    CriGetIsRau2T2RImpl impl;
};

TEST_F(CriGetIsRau2T2RTest, AnswerComesFromTheHandlerOfTheChannel)
{
    enrol<CriGetIsRau2T2RImpl>();
    node.channel1.rauHandler.onIsRau2T2R = false;
    node.channel2.rauHandler.onIsRau2T2R = true;
    const auto response = tell(criGetIsRau2T2R(command(2)));
    EXPECT_TRUE(response.IsRau2T2R);
    EXPECT_EQ(response.NumberOfChannels, 0U);
    EXPECT_FALSE(tell(criGetIsRau2T2R(command(1))).IsRau2T2R);
    EXPECT_EQ(transcript.text(), R"x(
IRauHandler_2.isRau2T2R()
result 0x0 0 ""
prints NumberOfChannels: 0, IsRau2T2R: 1
IRauHandler_1.isRau2T2R()
result 0x0 0 ""
prints NumberOfChannels: 0, IsRau2T2R: 0
)x");
}

TEST_F(CriGetIsRau2T2RTest, RequestAndAnswerAreTraced)
{
    enrol<CriGetIsRau2T2RImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriGetIsRau2T2RImpl", 7);
    node.channel1.rauHandler.onIsRau2T2R.inTurn({true, false});
    criGetIsRau2T2R(command(1));
    criGetIsRau2T2R(command(1));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.CriGetIsRau2T2R Request: RadioChannelID: 1\n
6 ZYR.TI.CriGetIsRau2T2RImpl: command.channelId=1
IRauHandler_1.isRau2T2R()
5 ZYR.TI.CriGetIsRau2T2RImpl: CriGetIsRau2T2R successfully executed: rau at channelId=1 isRau2T2R=1
5 ZYR.COMM: CRI.CriGetIsRau2T2R Response: NumberOfChannels: 0, IsRau2T2R: 1\n----------------------------------------------------\n
5 ZYR.COMM: CRI.CriGetIsRau2T2R Request: RadioChannelID: 1\n
6 ZYR.TI.CriGetIsRau2T2RImpl: command.channelId=1
IRauHandler_1.isRau2T2R()
5 ZYR.TI.CriGetIsRau2T2RImpl: CriGetIsRau2T2R successfully executed: rau at channelId=1 isRau2T2R=0
5 ZYR.COMM: CRI.CriGetIsRau2T2R Response: NumberOfChannels: 0, IsRau2T2R: 0\n----------------------------------------------------\n
)x");
}

TEST_F(CriGetIsRau2T2RTest, ChannelAboveTheCountIsRefusedWithoutALine)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetIsRau2T2RImpl", 7);
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriGetIsRau2T2RImpl: command.channelId=2
result 0xA002 3 "RadioChannelID > m_numberOfChannels"
prints tiResult: eTI_E_PARAMETER_INVALID, faultCode: 3, faultString: RadioChannelID > m_numberOfChannels
)x");
    EXPECT_EQ(outcome(impl.execute(command(1))), "result 0x0 0 \"\"");
}

TEST_F(CriGetIsRau2T2RTest, ChannelWithoutAHandlerIsToldSo)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetIsRau2T2RImpl", 7);
    tell(impl.execute(command(0)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriGetIsRau2T2RImpl: command.channelId=0
1 ZYR.TI.CriGetIsRau2T2RImpl: CRI.GetIsRau2T2R, rau handler not available
result 0x8000 4 "CRI.GetIsRau2T2R, rau handler not available"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetIsRau2T2R, rau handler not available
)x");
}

// initialize

TEST_F(CriGetIsRau2T2RTest, InitialiseTellsTheCountAtLevel6AndRefusesAnyOther)
{
    setTraceLevel("ZYR.TI.CriGetIsRau2T2RImpl", 7);
    EXPECT_EQ(impl.initialize(0), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriGetIsRau2T2RImpl: numberOfChannels=0
1 ZYR.TI.CriGetIsRau2T2RImpl: numberOfChannels is out of bounds
6 ZYR.TI.CriGetIsRau2T2RImpl: numberOfChannels=3
1 ZYR.TI.CriGetIsRau2T2RImpl: numberOfChannels is out of bounds
6 ZYR.TI.CriGetIsRau2T2RImpl: numberOfChannels=2
)x");
}

TEST_F(CriGetIsRau2T2RTest, SecondInitialiseIsRefusedBeforeTheRangeAndKeepsTheHandlers)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IRauHandler_2");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriGetIsRau2T2RImpl: CriGetIsRau2T2RImpl already initialized
1 ZYR.TI.CriGetIsRau2T2RImpl: CriGetIsRau2T2RImpl already initialized
)x");
    EXPECT_EQ(outcome(impl.execute(command(2))), "result 0x0 0 \"\"");
}

TEST_F(CriGetIsRau2T2RTest, FailedInitialiseStoresTheCountAndCannotBeRepeated)
{
    withdraw("IRauHandler_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(node.channel2.rauHandler);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriGetIsRau2T2RImpl: Could not find the Rau Handler interface
1 ZYR.TI.CriGetIsRau2T2RImpl: CriGetIsRau2T2RImpl already initialized
)x");
    EXPECT_EQ(outcome(impl.execute(command(1))), "result 0x0 0 \"\"");
    EXPECT_EQ(outcome(impl.execute(command(2))),
              "result 0x8000 4 \"CRI.GetIsRau2T2R, rau handler not available\"");
}

TEST_F(CriGetIsRau2T2RTest, InterfaceOfAnotherTypeUnderTheNameIsMissing)
{
    withdraw("IRauHandler_1");
    publish("IRauHandler_1", node.channel1.radio);
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriGetIsRau2T2RImpl: Could not find the Rau Handler interface
)x");
}

} // namespace
} // namespace zyr_top_api
