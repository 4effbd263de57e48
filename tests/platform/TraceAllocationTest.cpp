#include "DescriptorSink.h"
#include "FreshChannel.h"
#include "TraceService.h"

#include <gtest/gtest.h>

#include <fcntl.h>

#include <cstdlib>
#include <new>

namespace
{

thread_local std::size_t allocations = 0;

} // namespace

// Replaced for the whole test program, to count.
void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace
{

using zyr_platform::DescriptorSink;
using zyr_platform::TraceService;

constexpr TylTraceHeader kHeader{"src/a/B.cpp", 42, "execute"};

TEST(TraceAllocation, messageToADescriptorAllocatesNothingOnceTheBufferHasGrown)
{
    const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(null, 0);
    {
        const auto added = TraceService::get().addSink(std::make_shared<DescriptorSink>(null));
        const TylTrace& channel = freshChannel("Allocation.descriptor");
        const std::string text(500, 'x');
        channel.logMsg(1, kHeader, text);
        const std::size_t before = allocations;
        for (int i = 0; i < 100; ++i) {
            channel.logMsg(1, kHeader, text);
        }
        EXPECT_EQ(allocations, before);
    }
    ::close(null);
}

TEST(TraceAllocation, messageWithoutSinkAndAskingForALevelAllocateNothing)
{
    const TylTrace& channel = freshChannel("Allocation.none");
    channel.isEnabled(1);
    const std::size_t before = allocations;
    channel.logMsg(1, kHeader, "x");
    EXPECT_FALSE(channel.isEnabled(7));
    EXPECT_EQ(allocations, before);
}

} // namespace
