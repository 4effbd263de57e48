#include "CommandTest.h"
#include "IfLoopDriverDouble.h"
#include "TiGetIfLoopImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiGetIfLoopTest : public zyr_test::CommandTest
{
  protected:
    TiGetIfLoopTest()
    {
        publish(driver1);
        publish(driver2);
        driver1.onGetIfLoop = {0, 3};
        driver2.onGetIfLoop = {0, 255};
        transcript.clear();
    }

    zyr_test::IfLoopDriverDouble driver1{transcript, "IIfLoopDriver_1"};
    zyr_test::IfLoopDriverDouble driver2{transcript, "IIfLoopDriver_2"};
    TiGetIfLoopImpl impl;
};

TEST_F(TiGetIfLoopTest, EachChannelAnswersWithItsOwnDriversState)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({1}));
    tell(impl.execute({2}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiGetIfLoop: msg:RadioChannelId: 1
IIfLoopDriver_1.getIfLoop()
result 0x0 0 ""
prints IFLoop: 3, BarState: 0
6 ZYR.TI.TiGetIfLoop: msg:RadioChannelId: 2
IIfLoopDriver_2.getIfLoop()
result 0x0 0 ""
prints IFLoop: 255, BarState: 0
)");
}

TEST_F(TiGetIfLoopTest, DriverThatLeavesTheStateGivesZero)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    driver1.onGetIfLoop = 0;
    tell(impl.execute({1}));
    EXPECT_EQ(transcript.text(), R"(
IIfLoopDriver_1.getIfLoop()
result 0x0 0 ""
prints IFLoop: 0, BarState: 0
)");
}

TEST_F(TiGetIfLoopTest, AnyResultButZeroFails)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const int result : {1, -1, 0x8000}) {
        driver2.onGetIfLoop = {result, 9};
        transcript.clear();
        tell(impl.execute({2}));
        EXPECT_EQ(transcript.text(), R"x(
IIfLoopDriver_2.getIfLoop()
result 0x8000 4 "failed to get IF loop"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: failed to get IF loop
)x") << result;
    }
}

TEST_F(TiGetIfLoopTest, ChannelAboveTheCountIsRefusedWithASmallD)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    const TiGetIfLoop::Response response = tell(impl.execute({2}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiGetIfLoop: msg:RadioChannelId: 2
result 0xA100 2 "RadioChannelId out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelId out of bounds
)");
    EXPECT_EQ(response.ifLoop, 0U);
    EXPECT_EQ(response.barState, 0U);
}

TEST_F(TiGetIfLoopTest, ObjectThatWasNotInitialisedRefusesChannelOneByTheBoundAndZeroByItsState)
{
    tell(impl.execute({1}));
    tell(impl.execute({0}));
    EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "RadioChannelId out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelId out of bounds
result 0x8000 4 "TiGetIfLoopImpl has not been initialized"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TiGetIfLoopImpl has not been initialized
)");
}

TEST_F(TiGetIfLoopTest, ChannelZeroOfAnInitialisedObjectThrows)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute({0}); }), "IIfLoopDriver of radio channel 0");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiGetIfLoopTest, DefaultsAreChannelOneAndAnOpenLoop)
{
    EXPECT_EQ(TiGetIfLoop::Command().channelId, 1U);
    EXPECT_EQ(TiGetIfLoop::Response().printResponse(), "IFLoop: 0, BarState: 0");
}

} // namespace
} // namespace zyr_top_api
