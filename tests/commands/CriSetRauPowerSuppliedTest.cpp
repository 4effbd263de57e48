#include "CommandTest.h"
#include "CriSetRauPowerSuppliedImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriSetRauPowerSuppliedTest : public zyr_test::CommandTest
{
  protected:
    CriSetRauPowerSuppliedTest()
    {
        publishNode(node);
        transcript.clear();
    }

    static CriSetRauPowerSupplied::Command command(std::uint32_t channel, std::uint32_t supplied)
    {
        return {.RadioChannelID = channel, .RauPowerSupplied = supplied};
    }

    zyr_test::NodeDoubles node{transcript};
    CriSetRauPowerSuppliedImpl impl;
};

TEST_F(CriSetRauPowerSuppliedTest, NumberReachesTheRadioOfTheChannelUnchanged)
{
    enrol<CriSetRauPowerSuppliedImpl>();
    tell(criSetRauPowerSupplied(command(2, 0)));
    tell(criSetRauPowerSupplied(command(1, 1)));
    tell(criSetRauPowerSupplied(command(2, 4294967295U)));
    EXPECT_EQ(transcript.text(), R"x(
IRadio_2.setPowerSupplied(0)
result 0x0 0 ""
prints StandardResponse Sent\n
IRadio_1.setPowerSupplied(1)
result 0x0 0 ""
prints StandardResponse Sent\n
IRadio_2.setPowerSupplied(4294967295)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRauPowerSuppliedTest, RequestIsTracedByItsChannelAloneWithoutALineEnd)
{
    enrol<CriSetRauPowerSuppliedImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.CRI.ManageRauPowerSupplied", 7);
    criSetRauPowerSupplied(command(2, 1));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.SetRauPowerSupplied Request: RadioChannelId: 2
6 ZYR.CRI.ManageRauPowerSupplied: command.channelId=2
IRadio_2.setPowerSupplied(1)
5 ZYR.COMM: CRI.SetRauPowerSupplied Response: StandardResponse Sent\n\n----------------------------------------------------\n
)x");
}

TEST_F(CriSetRauPowerSuppliedTest, Channel0IsServedByTheFirstRadio)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(command(0, 5)));
    EXPECT_EQ(transcript.text(), R"x(
IRadio_1.setPowerSupplied(5)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRauPowerSuppliedTest, FailureOfTheRadioIsIgnored)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.CRI.ManageRauPowerSupplied", 7);
    node.channel1.radio.onSetPowerSupplied.inTurn({0x8000, 0xFFFFFFFFU});
    tell(impl.execute(command(1, 1)));
    tell(impl.execute(command(1, 0)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CRI.ManageRauPowerSupplied: command.channelId=1
IRadio_1.setPowerSupplied(1)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.CRI.ManageRauPowerSupplied: command.channelId=1
IRadio_1.setPowerSupplied(0)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRauPowerSuppliedTest, ChannelAboveTheCountIsRefused)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.CRI.ManageRauPowerSupplied", 7);
    tell(impl.execute(command(2, 1)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CRI.ManageRauPowerSupplied: command.channelId=2
result 0xA100 2 "RadioChannelId out of bounds"
prints StandardResponse Sent\n
)x");
    EXPECT_EQ(outcome(impl.execute(command(1, 1))), "result 0x0 0 \"\"");
}

TEST_F(CriSetRauPowerSuppliedTest, InitialiseRefusesAnyOtherCount)
{
    setTraceLevel("ZYR.CRI.ManageRauPowerSupplied", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CRI.ManageRauPowerSupplied:
1 ZYR.CRI.ManageRauPowerSupplied: Error: numberOfChannels is out of range (0)
6 ZYR.CRI.ManageRauPowerSupplied:
1 ZYR.CRI.ManageRauPowerSupplied: Error: numberOfChannels is out of range (3)
6 ZYR.CRI.ManageRauPowerSupplied:
)x");
}

TEST_F(CriSetRauPowerSuppliedTest, FailedInitialiseStoresNoCountAndCanBeRepeated)
{
    setTraceLevel("ZYR.CRI.ManageRauPowerSupplied", 7);
    withdraw("IRadio_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    tell(impl.execute(command(1, 1)));
    publish(node.channel2.radio);
    EXPECT_EQ(impl.initialize(2), 0);
    tell(impl.execute(command(2, 1)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CRI.ManageRauPowerSupplied:
1 ZYR.CRI.ManageRauPowerSupplied:  Error getting interface to IRadio_2
6 ZYR.CRI.ManageRauPowerSupplied: command.channelId=1
result 0xA100 2 "RadioChannelId out of bounds"
prints StandardResponse Sent\n
6 ZYR.CRI.ManageRauPowerSupplied:
6 ZYR.CRI.ManageRauPowerSupplied: command.channelId=2
IRadio_2.setPowerSupplied(1)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRauPowerSuppliedTest, SecondInitialiseFetchesTheRadiosAnewAndKeepsTheCountIfItFails)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IRadio_1");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(missingIn([&] { impl.execute(command(1, 1)); }), "IRadio of radio channel 1");
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, 1)); }), "IRadio of radio channel 1");
    EXPECT_EQ(outcome(impl.execute(command(2, 1))), "result 0x0 0 \"\"");
}

TEST_F(CriSetRauPowerSuppliedTest, Channel0OfAnObjectThatWasNotInitialisedReachesNoRadio)
{
    EXPECT_EQ(missingIn([&] { impl.execute(command(0, 1)); }), "IRadio of radio channel 1");
    EXPECT_EQ(outcome(impl.execute(command(1, 1))), "result 0xA100 2 \"RadioChannelId out of bounds\"");
}

} // namespace
} // namespace zyr_top_api
