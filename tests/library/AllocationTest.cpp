#include "AllocationCounter.h"
#include "CommandTest.h"
#include "CountedTest.h"
#include "CriEnableAcmImpl.h"
#include "IAcmHandler.h"
#include "Probe.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zyr_top_api
{
namespace
{

// Answers without recording, since the transcript allocates.
class QuietAcmHandler : public IAcmHandler
{
  public:
    EACMHResult enableAcm(bool) override { return result; }

    EACMHResult result = eACMH_S_OK;
};

class CountingSink : public zyr_platform::TraceSink
{
  public:
    void write(const zyr_platform::TraceRecord&) override { ++records; }

    std::size_t records = 0;
};

/// A table as large as a node's, the command in its middle.
class AllocationTest : public zyr_test::CountedTest<::testing::Test>
{
  protected:
    AllocationTest()
    {
        zyr_platform::TraceService::get().resetLevels();
        ZyrApiHandler::m_cmds.clear();
        addOthers(26);
        const auto wrapper = std::make_shared<CmdWrapper<CriEnableAcmImpl>>("CRI.EnableAcm");
        ZyrApiHandler::m_cmds.push_back(wrapper);
        addOthers(25);
        EXPECT_EQ(wrapper->impl().initialize(2), eTI_S_OK);
    }
    ~AllocationTest() override
    {
        zyr_platform::TraceService::get().resetLevels();
        ZyrApiHandler::m_cmds.clear();
    }

    static void addOthers(int count)
    {
        for (int number = 0; number < count; ++number) {
            ZyrApiHandler::m_cmds.push_back(
                std::make_shared<CmdWrapper<zyr_test::OpenProbe>>("CRI.Other" + std::to_string(number)));
        }
    }

    static std::size_t allocationsOf(std::uint32_t channel)
    {
        const CriEnableAcm::Command command{RadioChannel(channel), true};
        criEnableAcm(command);
        const zyr_test::AllocationCounter counter;
        criEnableAcm(command);
        return counter.allocations();
    }

    QuietAcmHandler acmHandler1;
    QuietAcmHandler acmHandler2;
    zyr_platform::Publication publication1{"IAcmHandler_1", acmHandler1};
    zyr_platform::Publication publication2{"IAcmHandler_2", acmHandler2};
};

TEST_F(AllocationTest, TableHasTheSizeOfANodes)
{
    EXPECT_EQ(ZyrApiHandler::m_cmds.size(), 52U);
}

TEST_F(AllocationTest, QuietCallAllocatesNothingAfterTheFirst)
{
    zyr_platform::TraceService::get().setLevelForAll(0);
    EXPECT_EQ(allocationsOf(1), 0U);
    EXPECT_EQ(allocationsOf(2), 0U);
}

TEST_F(AllocationTest, CallAtTheDefaultLevelsAllocatesNothingAfterTheFirst)
{
    const auto sink = std::make_shared<CountingSink>();
    const zyr_platform::Registration registration = zyr_platform::TraceService::get().addSink(sink);
    EXPECT_EQ(allocationsOf(1), 0U);
    EXPECT_EQ(sink->records, 2U);
}

TEST_F(AllocationTest, FullyTracedCallAllocatesNothingAfterTheFirst)
{
    const auto sink = std::make_shared<CountingSink>();
    const zyr_platform::Registration registration = zyr_platform::TraceService::get().addSink(sink);
    zyr_platform::TraceService::get().setLevelForAll(7);
    EXPECT_EQ(allocationsOf(1), 0U);
    // Twice: entry, running, request, the command's entry and summary, return, response.
    EXPECT_EQ(sink->records, 14U);
}

TEST_F(AllocationTest, FailureAllocatesForItsTextAlone)
{
    acmHandler1.result = eACMH_E_FAILED;
    EXPECT_LE(allocationsOf(1), 2U);
}

} // namespace
} // namespace zyr_top_api
