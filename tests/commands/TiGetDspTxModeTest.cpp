#include "DspApiFixture.h"
#include "TiGetDspTxModeImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace zyr_top_api
{
namespace
{

class TiGetDspTxModeTest : public zyr_test::DspApiFixture
{
  protected:
    TiGetDspTxModeImpl impl;
};

TEST_F(TiGetDspTxModeTest, BothChainsOfTheChannelAreReadInTurn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onGetDspTxMode.inTurn({{0, eDspATxModeOneTone, 1, -2}, {0, eDspATxModeMute, 3, 4}});
    dspApi2.channelApi.onGetDspTxMode.inTurn({{0, eDspATxModeNormal, 5, 6}, {0, eDspATxModeTwoTone, -7, 8}});
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({1}));
    tell(impl.execute({2}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.GetDspTxMode: command.channelId=1
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.getDspTxMode(1)
result 0x0 0 ""
prints OutputSignal: OneTone, SweepTime: 1, ToneFrequency: -2, CrossConnectOutputSignal: Mute, CrossConnectSweepTime: 3, CrossConnectToneFrequency: 4
6 ZYR.TI.GetDspTxMode: command.channelId=2
IDspChannelApi_2.getDspTxMode(0)
IDspChannelApi_2.getDspTxMode(1)
result 0x0 0 ""
prints OutputSignal: NormalOperation, SweepTime: 5, ToneFrequency: 6, CrossConnectOutputSignal: TwoTone, CrossConnectSweepTime: -7, CrossConnectToneFrequency: 8
)");
}

TEST_F(TiGetDspTxModeTest, EachModeHasItsTextOnBothChains)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    std::string texts;
    for (unsigned mode = 0; mode <= 9; ++mode) {
        const auto other = static_cast<EDspATxMode>(9 - mode);
        dspApi1.channelApi.onGetDspTxMode.inTurn(
            {{0, static_cast<EDspATxMode>(mode), 0, 0}, {0, other, 0, 0}});
        const TiGetDspTxMode::Response response = impl.execute({1});
        texts += response.OutputSignal + " " + response.CrossConnectOutputSignal + "\n";
    }
    EXPECT_EQ(texts, R"(NormalOperation UNDEFINED
OneTone UNDEFINED
TwoTone UNDEFINED
UNDEFINED UNDEFINED
UNDEFINED Mute
Mute UNDEFINED
UNDEFINED UNDEFINED
UNDEFINED TwoTone
UNDEFINED OneTone
UNDEFINED NormalOperation
)");
}

TEST_F(TiGetDspTxModeTest, DspThatLeavesTheModeGivesUndefinedOnBothChains)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.onGetDspTxMode.inTurn({{0, eDspATxModeMute, 1, 2}, 0});
    EXPECT_EQ(impl.execute({1}).CrossConnectOutputSignal, "UNDEFINED");
    std::string modesBefore;
    dspApi1.channelApi.onGetDspTxMode.doInstead([&](EDspATxMode& mode, int&, int&) {
        modesBefore += std::to_string(mode);
        mode = eDspATxModeNormal;
        return eTI_S_OK;
    });
    impl.execute({1});
    EXPECT_EQ(modesBefore, "88");
}

TEST_F(TiGetDspTxModeTest, ResultsFrom0x8000OfTheMainChainEndTheRead)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    dspApi1.channelApi.onGetDspTxMode.inTurn({{0x7FFF, eDspATxModeMute, 1, 2},
                                              {0x7FFF, eDspATxModeOneTone, 3, 4},
                                              {0x8000, eDspATxModeMute, 5, 6}});
    tell(impl.execute({1}));
    const TiGetDspTxMode::Response response = tell(impl.execute({1}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.GetDspTxMode: command.channelId=1
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.getDspTxMode(1)
result 0x0 0 ""
prints OutputSignal: Mute, SweepTime: 1, ToneFrequency: 2, CrossConnectOutputSignal: OneTone, CrossConnectSweepTime: 3, CrossConnectToneFrequency: 4
6 ZYR.TI.GetDspTxMode: command.channelId=1
IDspChannelApi_1.getDspTxMode(0)
result 0x8000 4 "Failed to get TxMode from DSP"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to get TxMode from DSP
)");
    EXPECT_EQ(response.OutputSignal, "");
    EXPECT_EQ(response.SweepTime, 0);
}

TEST_F(TiGetDspTxModeTest, FailureOfTheCrossConnectedChainKeepsTheMainOnes)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.onGetDspTxMode.inTurn(
        {{0, eDspATxModeOneTone, 1, 2}, {0x8000, eDspATxModeMute, 3, 4}});
    const TiGetDspTxMode::Response response = tell(impl.execute({1}));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.getDspTxMode(1)
result 0x8000 4 "Failed to get CrossConnect TxMode from DSP"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to get CrossConnect TxMode from DSP
)");
    EXPECT_EQ(response.OutputSignal, "OneTone");
    EXPECT_EQ(response.SweepTime, 1);
    EXPECT_EQ(response.ToneFrequency, 2);
    EXPECT_EQ(response.CrossConnectOutputSignal, "");
    EXPECT_EQ(response.CrossConnectSweepTime, 0);
    EXPECT_EQ(response.CrossConnectToneFrequency, 0);
}

TEST_F(TiGetDspTxModeTest, ChannelAboveTheCountIsRefusedWithASmallD)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({2}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.GetDspTxMode: command.channelId=2
result 0xA100 2 "RadioChannelId out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelId out of bounds
)");
}

TEST_F(TiGetDspTxModeTest, WhatIsMissingIsThrown)
{
    EXPECT_EQ(outcome(impl.execute({1})), "result 0xA100 2 \"RadioChannelId out of bounds\"");
    EXPECT_EQ(missingIn([&] { impl.execute({0}); }), "IDspApi of radio channel 0");
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute({0}); }), "IDspApi of radio channel 0");
    dspApi1.onGetDspChannelApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute({1}); }), "IDspChannelApi of radio channel 1");
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    transcript.clear();
    EXPECT_EQ(missingIn([&] { impl.execute({2}); }), "IDspApi of radio channel 2");
    EXPECT_EQ(transcript.text(), "\n");
}

} // namespace
} // namespace zyr_top_api
