#include "DspApiFixture.h"
#include "TiSetIfFrequencyImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiSetIfFrequencyTest : public zyr_test::DspApiFixture
{
  protected:
    TiSetIfFrequencyImpl impl;
};

TEST_F(TiSetIfFrequencyTest, FrequencyGoesToTheDirectionOfTheChannel)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({1, 0, 350000}));
    tell(impl.execute({2, 1, -140000}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.SetIfFrequency: command.channelId=1
IDspChannelApi_1.setTxFrequency(350000)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.SetIfFrequency: command.channelId=2
IDspChannelApi_2.setRxFrequency(-140000)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(TiSetIfFrequencyTest, ResultsFrom0x8000AreFailuresOfEitherDirection)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    dspApi1.channelApi.onSetTxFrequency.inTurn({0x7FFF, 0x8000});
    dspApi1.channelApi.onSetRxFrequency.inTurn({0x7FFF, 0x8000});
    tell(impl.execute({1, 0, 1}));
    tell(impl.execute({1, 0, 2}));
    tell(impl.execute({1, 1, 3}));
    tell(impl.execute({1, 1, 4}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.SetIfFrequency: command.channelId=1
IDspChannelApi_1.setTxFrequency(1)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.SetIfFrequency: command.channelId=1
IDspChannelApi_1.setTxFrequency(2)
result 0x8000 4 "Failed to set IF Frequency to DSP"
prints StandardResponse Sent\n
6 ZYR.TI.SetIfFrequency: command.channelId=1
IDspChannelApi_1.setRxFrequency(3)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.SetIfFrequency: command.channelId=1
IDspChannelApi_1.setRxFrequency(4)
result 0x8000 4 "Failed to set IF Frequency to DSP"
prints StandardResponse Sent\n
)");
}

TEST_F(TiSetIfFrequencyTest, DspWithoutTheseOperationsSucceeds)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi2.channelApi.defaultsInForce = true;
    EXPECT_EQ(outcome(impl.execute({2, 0, 5})), "result 0x0 0 \"\"");
    EXPECT_EQ(outcome(impl.execute({2, 1, 6})), "result 0x0 0 \"\"");
}

TEST_F(TiSetIfFrequencyTest, ChannelIsCheckedBeforeTheDirectionAndThatBeforeTheDsp)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({2, 2, 1}));
    tell(impl.execute({1, 2, 1}));
    tell(impl.execute({0, 0xFFFFFFFF, 1}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.SetIfFrequency: command.channelId=2
result 0xA100 2 "RadioChannelId out of bounds"
prints StandardResponse Sent\n
6 ZYR.TI.SetIfFrequency: command.channelId=1
result 0xA100 2 "Direction TX/RX not valid"
prints StandardResponse Sent\n
6 ZYR.TI.SetIfFrequency: command.channelId=0
result 0xA100 2 "Direction TX/RX not valid"
prints StandardResponse Sent\n
)");
}

TEST_F(TiSetIfFrequencyTest, WhatIsMissingIsThrown)
{
    EXPECT_EQ(outcome(impl.execute({1, 0, 1})), "result 0xA100 2 \"RadioChannelId out of bounds\"");
    EXPECT_EQ(missingIn([&] { impl.execute({0, 0, 1}); }), "IDspApi of radio channel 0");
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute({0, 0, 1}); }), "IDspApi of radio channel 0");
    dspApi1.onGetDspChannelApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute({1, 0, 1}); }), "IDspChannelApi of radio channel 1");
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    transcript.clear();
    EXPECT_EQ(missingIn([&] { impl.execute({2, 1, 1}); }), "IDspApi of radio channel 2");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiSetIfFrequencyTest, DefaultsAreTransmitOnChannelOne)
{
    EXPECT_EQ(TiSetIfFrequency::Command().channelId, 1U);
    EXPECT_EQ(TiSetIfFrequency::Command().direction, 0U);
    EXPECT_EQ(TiSetIfFrequency::Command().frequency, 0);
}

} // namespace
} // namespace zyr_top_api
