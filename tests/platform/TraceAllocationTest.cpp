#include "AllocationCounter.h"
#include "CountedTest.h"
#include "DescriptorSink.h"
#include "FreshChannel.h"
#include "TraceService.h"

#include <gtest/gtest.h>

#include <fcntl.h>

namespace
{

using zyr_platform::DescriptorSink;
using zyr_platform::TraceService;

using TraceAllocation = zyr_test::CountedTest<::testing::Test>;

constexpr TylTraceHeader kSource{"src/a/B.cpp", 42, "execute"};

TEST_F(TraceAllocation, messageToADescriptorAllocatesNothingOnceTheBufferHasGrown)
{
    const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(null, 0);
    {
        const auto added = TraceService::get().addSink(std::make_shared<DescriptorSink>(null));
        const TylTrace& channel = freshChannel("Allocation.descriptor");
        const std::string text(500, 'x');
        channel.logMsg(1, kSource, text);
        const zyr_test::AllocationCounter counter;
        for (int i = 0; i < 100; ++i) {
            channel.logMsg(1, kSource, text);
        }
        EXPECT_EQ(counter.allocations(), 0U);
    }
    ::close(null);
}

TEST_F(TraceAllocation, messageWithoutSinkAndAskingForALevelAllocateNothing)
{
    const TylTrace& channel = freshChannel("Allocation.none");
    channel.isEnabled(1);
    const zyr_test::AllocationCounter counter;
    channel.logMsg(1, kSource, "x");
    EXPECT_FALSE(channel.isEnabled(7));
    EXPECT_EQ(counter.allocations(), 0U);
}

} // namespace
