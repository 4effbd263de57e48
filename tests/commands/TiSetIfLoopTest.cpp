#include "CommandTest.h"
#include "IfLoopDriverDouble.h"
#include "TiSetIfLoopImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiSetIfLoopTest : public zyr_test::CommandTest
{
  protected:
    TiSetIfLoopTest()
    {
        publish(driver1);
        publish(driver2);
        transcript.clear();
    }

    zyr_test::IfLoopDriverDouble driver1{transcript, "IIfLoopDriver_1"};
    zyr_test::IfLoopDriverDouble driver2{transcript, "IIfLoopDriver_2"};
    TiSetIfLoopImpl impl;
};

TEST_F(TiSetIfLoopTest, AnyValueButZeroClosesTheLoopOfItsChannel)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({1, 0}));
    tell(impl.execute({2, 1}));
    tell(impl.execute({1, 2}));
    tell(impl.execute({2, 0x80000000}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiSetIfLoop: msg:RadioChannelId: 1, IfLoop: 0
IIfLoopDriver_1.setIfLoop(false)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.TiSetIfLoop: msg:RadioChannelId: 2, IfLoop: 1
IIfLoopDriver_2.setIfLoop(true)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.TiSetIfLoop: msg:RadioChannelId: 1, IfLoop: 2
IIfLoopDriver_1.setIfLoop(true)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.TiSetIfLoop: msg:RadioChannelId: 2, IfLoop: 2147483648
IIfLoopDriver_2.setIfLoop(true)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(TiSetIfLoopTest, AnyResultButZeroFails)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    for (const int result : {1, -1, 0x8000}) {
        driver1.onSetIfLoop = result;
        transcript.clear();
        tell(impl.execute({1, 1}));
        EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.TiSetIfLoop: msg:RadioChannelId: 1, IfLoop: 1
IIfLoopDriver_1.setIfLoop(true)
result 0x8000 4 "failed to set IF loop"
prints StandardResponse Sent\n
)x") << result;
    }
}

TEST_F(TiSetIfLoopTest, ChannelAboveTheCountIsRefusedWithASmallD)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({2, 1}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiSetIfLoop: msg:RadioChannelId: 2, IfLoop: 1
result 0xA100 2 "RadioChannelId out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(TiSetIfLoopTest, ObjectThatWasNotInitialisedRefusesChannelOneByTheBoundAndZeroByItsState)
{
    tell(impl.execute({1, 1}));
    tell(impl.execute({0, 1}));
    EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "RadioChannelId out of bounds"
prints StandardResponse Sent\n
result 0x8000 4 "TiSetIfLoopImpl has not been initialized"
prints StandardResponse Sent\n
)");
}

TEST_F(TiSetIfLoopTest, ChannelZeroOfAnInitialisedObjectAndAChannelWithoutADriverThrow)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IIfLoopDriver_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    transcript.clear();
    EXPECT_EQ(missingIn([&] { impl.execute({0, 1}); }), "IIfLoopDriver of radio channel 0");
    EXPECT_EQ(missingIn([&] { impl.execute({2, 1}); }), "IIfLoopDriver of radio channel 2");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiSetIfLoopTest, DefaultsAreChannelOneAndAnOpenLoop)
{
    EXPECT_EQ(TiSetIfLoop::Command().channelId, 1U);
    EXPECT_EQ(TiSetIfLoop::Command().ifLoop, 0U);
}

} // namespace
} // namespace zyr_top_api
