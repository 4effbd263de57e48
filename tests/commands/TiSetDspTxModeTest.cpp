#include "DspApiFixture.h"
#include "TiSetDspTxModeImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiSetDspTxModeTest : public zyr_test::DspApiFixture
{
  protected:
    TiSetDspTxModeImpl impl;
};

TEST_F(TiSetDspTxModeTest, EachSignalGoesToTheMainChainOfItsChannel)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({1, "Normal", 0, 0}));
    tell(impl.execute({2, "OneTone", 1, -2}));
    tell(impl.execute({1, "TwoTone", -3, 4}));
    tell(impl.execute({2, "Mute", 5, 6}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.SetDspTxMode: command=TiSetDspTxMode::Command: RadioChannelID: 1, OutputSignal: Normal, SweepTime: 0, ToneFrequency: 0
IDspChannelApi_1.setDspTxMode(0, 0, 0, 0)
result 0x0 0 ""
prints OutputSignal: Normal, SweepTime: 0, ToneFrequency: 0
6 ZYR.TI.SetDspTxMode: command=TiSetDspTxMode::Command: RadioChannelID: 2, OutputSignal: OneTone, SweepTime: 1, ToneFrequency: -2
IDspChannelApi_2.setDspTxMode(0, 1, 1, -2)
result 0x0 0 ""
prints OutputSignal: OneTone, SweepTime: 1, ToneFrequency: -2
6 ZYR.TI.SetDspTxMode: command=TiSetDspTxMode::Command: RadioChannelID: 1, OutputSignal: TwoTone, SweepTime: -3, ToneFrequency: 4
IDspChannelApi_1.setDspTxMode(0, 2, -3, 4)
result 0x0 0 ""
prints OutputSignal: TwoTone, SweepTime: -3, ToneFrequency: 4
6 ZYR.TI.SetDspTxMode: command=TiSetDspTxMode::Command: RadioChannelID: 2, OutputSignal: Mute, SweepTime: 5, ToneFrequency: 6
IDspChannelApi_2.setDspTxMode(0, 5, 5, 6)
result 0x0 0 ""
prints OutputSignal: Mute, SweepTime: 5, ToneFrequency: 6
)");
}

TEST_F(TiSetDspTxModeTest, AnyOtherTextIsUndefinedAndReachesNoDsp)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    for (const char* const text :
         {"NormalOperation", "", "normal", "Normal ", "ToneSweep", "UNDEFINED", "eDspATxModeMute", "0"}) {
        transcript.clear();
        const TiSetDspTxMode::Response response = tell(impl.execute({1, text, 1, 2}));
        EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "OutputSignal is undefined"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: OutputSignal is undefined
)") << text;
        EXPECT_EQ(response.OutputSignal, "");
        EXPECT_EQ(response.SweepTime, 0);
        EXPECT_EQ(response.ToneFrequency, 0);
    }
}

TEST_F(TiSetDspTxModeTest, ChannelIsCheckedBeforeTheSignalWithASmallD)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({2, "Loud", 1, 2}));
    tell(impl.execute({0, "Loud", 3, 4}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.SetDspTxMode: command=TiSetDspTxMode::Command: RadioChannelID: 2, OutputSignal: Loud, SweepTime: 1, ToneFrequency: 2
result 0xA100 2 "RadioChannelId out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelId out of bounds
6 ZYR.TI.SetDspTxMode: command=TiSetDspTxMode::Command: RadioChannelID: 0, OutputSignal: Loud, SweepTime: 3, ToneFrequency: 4
result 0xA100 2 "OutputSignal is undefined"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: OutputSignal is undefined
)");
}

TEST_F(TiSetDspTxModeTest, ResultsFrom0x8000AreFailuresWithoutValues)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.onSetDspTxMode.inTurn({0x7FFF, 0x8000});
    tell(impl.execute({1, "Mute", 1, 2}));
    const TiSetDspTxMode::Response response = tell(impl.execute({1, "Mute", 3, 4}));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.setDspTxMode(0, 5, 1, 2)
result 0x0 0 ""
prints OutputSignal: Mute, SweepTime: 1, ToneFrequency: 2
IDspChannelApi_1.setDspTxMode(0, 5, 3, 4)
result 0x8000 4 "Failed to set TxMode to DSP"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to set TxMode to DSP
)");
    EXPECT_EQ(response.OutputSignal, "");
    EXPECT_EQ(response.SweepTime, 0);
    EXPECT_EQ(response.ToneFrequency, 0);
}

TEST_F(TiSetDspTxModeTest, WhatIsMissingIsThrown)
{
    EXPECT_EQ(outcome(impl.execute({1, "Mute", 0, 0})), "result 0xA100 2 \"RadioChannelId out of bounds\"");
    EXPECT_EQ(missingIn([&] { impl.execute({0, "Mute", 0, 0}); }), "IDspApi of radio channel 0");
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute({0, "Mute", 0, 0}); }), "IDspApi of radio channel 0");
    dspApi1.onGetDspChannelApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute({1, "Mute", 0, 0}); }), "IDspChannelApi of radio channel 1");
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    transcript.clear();
    EXPECT_EQ(missingIn([&] { impl.execute({2, "Mute", 0, 0}); }), "IDspApi of radio channel 2");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiSetDspTxModeTest, DefaultsAreChannelOneAndNoSignal)
{
    EXPECT_EQ(TiSetDspTxMode::Command().RadioChannelID, 1U);
    EXPECT_EQ(TiSetDspTxMode::Command().OutputSignal, "");
    EXPECT_EQ(TiSetDspTxMode::Response().printResponse(), "OutputSignal: , SweepTime: 0, ToneFrequency: 0");
}

} // namespace
} // namespace zyr_top_api
