#include "CommandTest.h"
#include "CriSetActiveSubBandImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriSetActiveSubBandTest : public zyr_test::CommandTest
{
  protected:
    CriSetActiveSubBandTest()
    {
        publishNode(node);
        transcript.clear();
    }

    static CriSetActiveSubBand::Command command(std::uint32_t channel, std::uint32_t subBand)
    {
        return {.RadioChannelID = channel, .subBand = subBand};
    }

    zyr_test::NodeDoubles node{transcript};
    CriSetActiveSubBandImpl impl;
};

TEST_F(CriSetActiveSubBandTest, SubBandReachesTheRadioOfTheChannel)
{
    enrol<CriSetActiveSubBandImpl>();
    tell(criSetActiveSubBand(command(2, 3)));
    tell(criSetActiveSubBand(command(1, 255)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetActiveSubBand: RadioChannelID: 2, subBand: 3\n
IRadio_2.setActiveSubBand(3)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetActiveSubBand: RadioChannelID: 1, subBand: 255\n
IRadio_1.setActiveSubBand(255)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetActiveSubBandTest, LowByteReachesTheRadioAndTheWholeNumberIsTraced)
{
    enrol<CriSetActiveSubBandImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriSetActiveSubBand", 7);
    criSetActiveSubBand(command(1, 256));
    criSetActiveSubBand(command(2, 4294967041U));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.SetActiveSubBand Request: RadioChannelID: 1, subBand: 256\n
3 ZYR.TI.CriSetActiveSubBand: RadioChannelID: 1, subBand: 256\n
5 ZYR.TI.CriSetActiveSubBand: RAU subband request is: 256
IRadio_1.setActiveSubBand(0)
5 ZYR.COMM: CRI.SetActiveSubBand Response: StandardResponse Sent\n\n----------------------------------------------------\n
5 ZYR.COMM: CRI.SetActiveSubBand Request: RadioChannelID: 2, subBand: 4294967041\n
3 ZYR.TI.CriSetActiveSubBand: RadioChannelID: 2, subBand: 4294967041\n
5 ZYR.TI.CriSetActiveSubBand: RAU subband request is: 4294967041
IRadio_2.setActiveSubBand(1)
5 ZYR.COMM: CRI.SetActiveSubBand Response: StandardResponse Sent\n\n----------------------------------------------------\n
)x");
}

TEST_F(CriSetActiveSubBandTest, RefusalOfTheRadioIsToldOtherwiseInTheTraceThanInTheResponse)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetActiveSubBand", 7);
    for (const unsigned result : {0x8000U, 0xFFFFFFFFU}) {
        node.channel1.radio.onSetActiveSubBand = result;
        transcript.clear();
        tell(impl.execute(command(1, 4)));
        EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetActiveSubBand: RadioChannelID: 1, subBand: 4\n
5 ZYR.TI.CriSetActiveSubBand: RAU subband request is: 4
IRadio_1.setActiveSubBand(4)
1 ZYR.TI.CriSetActiveSubBand: CRI.SetActiveSubBand failed to set subBand
result 0x8000 4 "Failed to set subBand"
prints StandardResponse Sent\n
)x");
    }
}

TEST_F(CriSetActiveSubBandTest, GreatestSuccessOfTheRadioComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetActiveSubBand", 7);
    node.channel1.radio.onSetActiveSubBand = 0x7FFF;
    tell(impl.execute(command(1, 4)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetActiveSubBand: RadioChannelID: 1, subBand: 4\n
5 ZYR.TI.CriSetActiveSubBand: RAU subband request is: 4
IRadio_1.setActiveSubBand(4)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetActiveSubBandTest, ChannelEqualToTheCountIsAcceptedAndOneAboveRefusedWithALine)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetActiveSubBand", 7);
    tell(impl.execute(command(2, 1)));
    tell(impl.execute(command(3, 1)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetActiveSubBand: RadioChannelID: 2, subBand: 1\n
5 ZYR.TI.CriSetActiveSubBand: RAU subband request is: 1
IRadio_2.setActiveSubBand(1)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetActiveSubBand: RadioChannelID: 3, subBand: 1\n
1 ZYR.TI.CriSetActiveSubBand: command.channelId: 3 m_numberOfChannels 2
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetActiveSubBandTest, Channel0PassesTheBoundCheckAndReachesNoRadio)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, 1)); }), "IRadio of radio channel 0");
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetActiveSubBand: RadioChannelID: 0, subBand: 1\n
)x");
}

TEST_F(CriSetActiveSubBandTest, InitialiseTellsTheCountAtLevel6AndRefusesAnyOther)
{
    setTraceLevel("ZYR.TI.CriSetActiveSubBand", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetActiveSubBand: numberOfChannels=0
1 ZYR.TI.CriSetActiveSubBand: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriSetActiveSubBand: numberOfChannels=3
1 ZYR.TI.CriSetActiveSubBand: Error: numberOfChannels is out of range (3)
6 ZYR.TI.CriSetActiveSubBand: numberOfChannels=2
)x");
}

TEST_F(CriSetActiveSubBandTest, SecondInitialiseIsRefusedBehindTheRangeAndKeepsTheRadios)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IRadio_2");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    impl.execute(command(2, 6));
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriSetActiveSubBand: Already initialized
1 ZYR.TI.CriSetActiveSubBand: Error: numberOfChannels is out of range (3)
3 ZYR.TI.CriSetActiveSubBand: RadioChannelID: 2, subBand: 6\n
IRadio_2.setActiveSubBand(6)
)x");
}

TEST_F(CriSetActiveSubBandTest, FailedInitialiseStoresTheCountAndCannotBeRepeated)
{
    withdraw("IRadio_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(node.channel2.radio);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriSetActiveSubBand: Error getting interface to IRadio_2
1 ZYR.TI.CriSetActiveSubBand: Already initialized
)x");
    EXPECT_EQ(outcome(impl.execute(command(1, 1))), "result 0x0 0 \"\"");
    EXPECT_EQ(missingIn([&] { impl.execute(command(2, 1)); }), "IRadio of radio channel 2");
}

} // namespace
} // namespace zyr_top_api
