#include "DspApiFixture.h"
#include "TiGetRxXcStatusLevelImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiGetRxXcStatusLevelTest : public zyr_test::DspApiFixture
{
  protected:
    TiGetRxXcStatusLevelTest()
    {
        dspApi1.statusApi.onGetRxXcStatusLevel = {0, std::int16_t{-85}, std::int16_t{-32768}};
        dspApi2.statusApi.onGetRxXcStatusLevel = {0, std::int16_t{32767}, std::int16_t{12}};
    }

    TiGetRxXcStatusLevelImpl impl;
};

TEST_F(TiGetRxXcStatusLevelTest, EachChannelGivesItsTwoLevels)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({1}));
    tell(impl.execute({2}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiGetRxXcStatusLevel: msg:RadioChannelId: 1
IDspStatusApi_1.getRxXcStatusLevel()
result 0x0 0 ""
prints RslCh0: -85, RslCh1: -32768
6 ZYR.TI.TiGetRxXcStatusLevel: msg:RadioChannelId: 2
IDspStatusApi_2.getRxXcStatusLevel()
result 0x0 0 ""
prints RslCh0: 32767, RslCh1: 12
)");
}

TEST_F(TiGetRxXcStatusLevelTest, ResultsFrom0x8000AreFailuresWithoutLevels)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.statusApi.onGetRxXcStatusLevel.inTurn(
        {{0x7FFF, std::int16_t{1}, std::int16_t{2}}, {0x8000, std::int16_t{3}, std::int16_t{4}}});
    tell(impl.execute({1}));
    const TiGetRxXcStatusLevel::Response response = tell(impl.execute({1}));
    EXPECT_EQ(transcript.text(), R"(
IDspStatusApi_1.getRxXcStatusLevel()
result 0x0 0 ""
prints RslCh0: 1, RslCh1: 2
IDspStatusApi_1.getRxXcStatusLevel()
result 0x8000 4 "Failed to get RX XC status level"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to get RX XC status level
)");
    EXPECT_EQ(response.rslCh0, 0);
    EXPECT_EQ(response.rslCh1, 0);
}

TEST_F(TiGetRxXcStatusLevelTest, DspWithoutTheOperationFails)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.statusApi.defaultsInForce = true;
    EXPECT_EQ(outcome(impl.execute({1})), "result 0x8000 4 \"Failed to get RX XC status level\"");
}

TEST_F(TiGetRxXcStatusLevelTest, ChannelAboveTheCountIsRefusedWithASmallD)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({2}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiGetRxXcStatusLevel: msg:RadioChannelId: 2
result 0xA100 2 "RadioChannelId out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelId out of bounds
)");
}

TEST_F(TiGetRxXcStatusLevelTest, ObjectThatWasNotInitialisedRefusesChannelOneByTheBoundAndZeroByItsState)
{
    transcript.add(outcome(impl.execute({1})));
    transcript.add(outcome(impl.execute({0})));
    EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "RadioChannelId out of bounds"
result 0x8000 4 "TiGetRxXcStatusLevelImpl has not been initialized"
)");
}

TEST_F(TiGetRxXcStatusLevelTest, WhatIsMissingIsThrown)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute({0}); }), "IDspApi of radio channel 0");
    dspApi1.onGetDspStatusApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute({1}); }), "IDspStatusApi of radio channel 1");
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    transcript.clear();
    EXPECT_EQ(missingIn([&] { impl.execute({2}); }), "IDspApi of radio channel 2");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiGetRxXcStatusLevelTest, DispatcherAnswersWithTheGateOpenOnly)
{
    enrol<TiGetRxXcStatusLevelImpl>();
    setTraceLevel("ZYR.COMM", 5);
    tell(tiGetRxXcStatusLevel({2}));
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.ZyrTopApi: Error: Command TI.GetRxXcStatusLevel not available
result 0x8003 4 "Error: Command not available"
prints tiResult: eTI_E_OPERATION_NOT_ALLOWED, faultCode: 4, faultString: Error: Command not available
)");
    openTestGate();
    tell(tiGetRxXcStatusLevel({2}));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: TI.GetRxXcStatusLevel Request: RadioChannelId: 2
IDspStatusApi_2.getRxXcStatusLevel()
5 ZYR.COMM: TI.GetRxXcStatusLevel Response: RslCh0: 32767, RslCh1: 12\n----------------------------------------------------\n
result 0x0 0 ""
prints RslCh0: 32767, RslCh1: 12
)");
}

} // namespace
} // namespace zyr_top_api
