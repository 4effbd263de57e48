#include "CommandTest.h"
#include "CriGetRauPowerSuppliedImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriGetRauPowerSuppliedTest : public zyr_test::CommandTest
{
  protected:
    CriGetRauPowerSuppliedTest()
    {
        publishNode(node);
        transcript.clear();
    }

    static CriGetRauPowerSupplied::Command command(std::uint32_t channel)
    {
        return {.RadioChannelID = channel};
    }

    zyr_test::NodeDoubles node{transcript};
    CriGetRauPowerSuppliedImpl impl;
};

TEST_F(CriGetRauPowerSuppliedTest, AnswerComesFromTheRadioOfTheChannel)
{
    enrol<CriGetRauPowerSuppliedImpl>();
    node.channel1.radio.onIsPowerSupplied = false;
    node.channel2.radio.onIsPowerSupplied = true;
    const auto response = tell(criGetRauPowerSupplied(command(2)));
    EXPECT_TRUE(response.RauPowerSupplied);
    EXPECT_EQ(response.RadioChannelID, 1U);
    EXPECT_FALSE(tell(criGetRauPowerSupplied(command(1))).RauPowerSupplied);
    EXPECT_EQ(transcript.text(), R"x(
IRadio_2.isPowerSupplied()
result 0x0 0 ""
prints RauPowerSupplied: 1\n
IRadio_1.isPowerSupplied()
result 0x0 0 ""
prints RauPowerSupplied: 0\n
)x");
}

TEST_F(CriGetRauPowerSuppliedTest, RequestIsTracedWithoutALineEnd)
{
    enrol<CriGetRauPowerSuppliedImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.CRI.GetRauPowerSupplied", 7);
    criGetRauPowerSupplied(command(2));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.GetRauPowerSupplied Request: RadioChannelId: 2
6 ZYR.CRI.GetRauPowerSupplied: command.channelId=2
IRadio_2.isPowerSupplied()
5 ZYR.COMM: CRI.GetRauPowerSupplied Response: RauPowerSupplied: 1\n\n----------------------------------------------------\n
)x");
}

TEST_F(CriGetRauPowerSuppliedTest, Channel0IsServedByTheFirstRadio)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.radio.onIsPowerSupplied = true;
    node.channel2.radio.onIsPowerSupplied = false;
    const auto response = tell(impl.execute(command(0)));
    EXPECT_EQ(response.RadioChannelID, 1U);
    EXPECT_EQ(transcript.text(), R"x(
IRadio_1.isPowerSupplied()
result 0x0 0 ""
prints RauPowerSupplied: 1\n
)x");
}

TEST_F(CriGetRauPowerSuppliedTest, ChannelAboveTheCountIsRefused)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.CRI.GetRauPowerSupplied", 7);
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CRI.GetRauPowerSupplied: command.channelId=2
result 0xA100 2 "RadioChannelId out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelId out of bounds
)x");
    EXPECT_EQ(outcome(impl.execute(command(1))), "result 0x0 0 \"\"");
}

TEST_F(CriGetRauPowerSuppliedTest, InitialiseRefusesAnyOtherCount)
{
    setTraceLevel("ZYR.CRI.GetRauPowerSupplied", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CRI.GetRauPowerSupplied:
1 ZYR.CRI.GetRauPowerSupplied: Error: numberOfChannels is out of range (0)
6 ZYR.CRI.GetRauPowerSupplied:
1 ZYR.CRI.GetRauPowerSupplied: Error: numberOfChannels is out of range (3)
6 ZYR.CRI.GetRauPowerSupplied:
)x");
}

TEST_F(CriGetRauPowerSuppliedTest, FailedInitialiseStoresNoCountAndCanBeRepeated)
{
    setTraceLevel("ZYR.CRI.GetRauPowerSupplied", 7);
    node.channel2.radio.onIsPowerSupplied = true;
    withdraw("IRadio_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    tell(impl.execute(command(1)));
    publish(node.channel2.radio);
    EXPECT_EQ(impl.initialize(2), 0);
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CRI.GetRauPowerSupplied:
1 ZYR.CRI.GetRauPowerSupplied:  Error getting interface to IRadio_2
6 ZYR.CRI.GetRauPowerSupplied: command.channelId=1
result 0xA100 2 "RadioChannelId out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelId out of bounds
6 ZYR.CRI.GetRauPowerSupplied:
6 ZYR.CRI.GetRauPowerSupplied: command.channelId=2
IRadio_2.isPowerSupplied()
result 0x0 0 ""
prints RauPowerSupplied: 1\n
)x");
}

TEST_F(CriGetRauPowerSuppliedTest, SecondInitialiseFetchesTheRadiosAnewAndKeepsTheCountIfItFails)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IRadio_1");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(missingIn([&] { impl.execute(command(1)); }), "IRadio of radio channel 1");
    EXPECT_EQ(missingIn([&] { impl.execute(command(0)); }), "IRadio of radio channel 1");
    EXPECT_EQ(outcome(impl.execute(command(2))), "result 0x0 0 \"\"");
}

TEST_F(CriGetRauPowerSuppliedTest, Channel0OfAnObjectThatWasNotInitialisedReachesNoRadio)
{
    EXPECT_EQ(missingIn([&] { impl.execute(command(0)); }), "IRadio of radio channel 1");
    EXPECT_EQ(outcome(impl.execute(command(1))), "result 0xA100 2 \"RadioChannelId out of bounds\"");
}

} // namespace
} // namespace zyr_top_api
