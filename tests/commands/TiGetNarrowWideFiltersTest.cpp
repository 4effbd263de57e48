#include "DspApiFixture.h"
#include "TiGetNarrowWideFiltersImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiGetNarrowWideFiltersTest : public zyr_test::DspApiFixture
{
  protected:
    TiGetNarrowWideFiltersImpl impl;
};

TEST_F(TiGetNarrowWideFiltersTest, FirstChannelIsReadWhateverTheChannelAndNothingIsTraced)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onGetNarrowWideFilters.inTurn({{0, -3}, {0x7FFF, 8}, {0, 0}});
    dspApi2.channelApi.onGetNarrowWideFilters = {0, 99};
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({1}));
    tell(impl.execute({2}));
    tell(impl.execute({0}));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.getNarrowWideFilters()
result 0x0 0 ""
prints Filter: -3
IDspChannelApi_1.getNarrowWideFilters()
result 0x0 0 ""
prints Filter: 8
IDspChannelApi_1.getNarrowWideFilters()
result 0x0 0 ""
prints Filter: 0
)");
}

TEST_F(TiGetNarrowWideFiltersTest, AnyFailureHasOneTextAndGivesNoValue)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    for (const int result : {32768, 32771, 32772}) {
        dspApi1.channelApi.onGetNarrowWideFilters = {result, 5};
        transcript.clear();
        const TiGetNarrowWideFilters::Response response = tell(impl.execute({1}));
        EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.getNarrowWideFilters()
result 0x8000 4 "Not supported in this HW variant: failed to get mux filters setting to GPIO"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Not supported in this HW variant: failed to get mux filters setting to GPIO
)") << result;
        EXPECT_EQ(response.filter, 0);
    }
}

TEST_F(TiGetNarrowWideFiltersTest, DspWithoutTheOperationGivesZero)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.defaultsInForce = true;
    tell(impl.execute({1}));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.getNarrowWideFilters()
result 0x0 0 ""
prints Filter: 0
)");
}

TEST_F(TiGetNarrowWideFiltersTest, DspThatLeavesTheValueGivesZero)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.onGetNarrowWideFilters = 0;
    EXPECT_EQ(impl.execute({1}).filter, 0);
}

TEST_F(TiGetNarrowWideFiltersTest, WhatIsMissingIsThrown)
{
    EXPECT_EQ(missingIn([&] { impl.execute({1}); }), "IDspApi of radio channel 1");
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.onGetDspChannelApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute({1}); }), "IDspChannelApi of radio channel 1");
    withdraw("IDspApi_1");
    EXPECT_EQ(impl.initialize(1), eTI_E_FAILED);
    transcript.clear();
    EXPECT_EQ(missingIn([&] { impl.execute({1}); }), "IDspApi of radio channel 1");
    EXPECT_EQ(transcript.text(), "\n");
}

} // namespace
} // namespace zyr_top_api
