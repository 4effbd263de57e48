#include "DspApiFixture.h"
#include "TiSetNarrowWideFiltersImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiSetNarrowWideFiltersTest : public zyr_test::DspApiFixture
{
  protected:
    TiSetNarrowWideFiltersImpl impl;
};

TEST_F(TiSetNarrowWideFiltersTest, FirstChannelIsSetWhateverTheChannelAndNothingIsTraced)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({1, 7}));
    tell(impl.execute({2, -3}));
    tell(impl.execute({0, 0}));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.setNarrowWideFilters(7)
result 0x0 0 ""
prints StandardResponse Sent\n
IDspChannelApi_1.setNarrowWideFilters(-3)
result 0x0 0 ""
prints StandardResponse Sent\n
IDspChannelApi_1.setNarrowWideFilters(0)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(TiSetNarrowWideFiltersTest, TextOfTheFailureDependsOnTheResult)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    dspApi1.channelApi.onSetNarrowWideFilters.inTurn({0x7FFF, 32768, 32769, 32770, 32771, 32772, -1});
    for (int filter = 1; filter <= 7; ++filter) {
        tell(impl.execute({1, filter}));
    }
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.setNarrowWideFilters(1)
result 0x0 0 ""
prints StandardResponse Sent\n
IDspChannelApi_1.setNarrowWideFilters(2)
result 0x8000 4 "Not supported in this HW variant: failed to set mux filters to GPIO"
prints StandardResponse Sent\n
IDspChannelApi_1.setNarrowWideFilters(3)
result 0x8000 4 "Generic error : failed to set mux filters to GPIO"
prints StandardResponse Sent\n
IDspChannelApi_1.setNarrowWideFilters(4)
result 0x8000 4 "Generic error : failed to set mux filters to GPIO"
prints StandardResponse Sent\n
IDspChannelApi_1.setNarrowWideFilters(5)
result 0x8000 4 "Invalid parameters: failed to set mux filters to GPIO"
prints StandardResponse Sent\n
IDspChannelApi_1.setNarrowWideFilters(6)
result 0x8000 4 "Generic error : failed to set mux filters to GPIO"
prints StandardResponse Sent\n
IDspChannelApi_1.setNarrowWideFilters(7)
result 0x8000 4 "Generic error : failed to set mux filters to GPIO"
prints StandardResponse Sent\n
)");
}

TEST_F(TiSetNarrowWideFiltersTest, DspWithoutTheOperationSucceeds)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.defaultsInForce = true;
    EXPECT_EQ(outcome(impl.execute({1, 5})), "result 0x0 0 \"\"");
}

TEST_F(TiSetNarrowWideFiltersTest, WhatIsMissingIsThrown)
{
    EXPECT_EQ(missingIn([&] { impl.execute({1, 1}); }), "IDspApi of radio channel 1");
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.onGetDspChannelApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute({1, 1}); }), "IDspChannelApi of radio channel 1");
    withdraw("IDspApi_1");
    EXPECT_EQ(impl.initialize(1), eTI_E_FAILED);
    transcript.clear();
    EXPECT_EQ(missingIn([&] { impl.execute({1, 1}); }), "IDspApi of radio channel 1");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiSetNarrowWideFiltersTest, InitialiseTracesAsAllDo)
{
    setTraceLevel("*", 7);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.SetNarrowWideFilters:
1 ZYR.TI.SetNarrowWideFilters: Error: numberOfChannels is out of range (3)
)x");
}

} // namespace
} // namespace zyr_top_api
