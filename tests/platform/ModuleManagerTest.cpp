#include "ModuleManager.h"

#include "CModuleManager.h"
#include "MemorySink.h"
#include "TraceService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{

using testing::ElementsAre;
using zyr_platform::MemorySink;
using zyr_platform::ModuleManager;
using zyr_platform::Registration;
using zyr_platform::TraceService;

class ModuleManagerTest : public testing::Test
{
  protected:
    Registration phase(std::uint32_t group, const std::string& name, std::uint32_t result)
    {
        return manager.registerPhase(group, name, [this, name, result](std::uint32_t channel) {
            calls.push_back(name + " " + std::to_string(channel));
            return result;
        });
    }

    std::vector<std::string> traced() const
    {
        std::vector<std::string> texts;
        for (const auto& record : sink->records()) {
            texts.push_back(record.channel + " " + std::to_string(record.level) + " " + record.text);
        }
        return texts;
    }

    ModuleManager& manager = ModuleManager::get();
    std::vector<std::string> calls;
    std::shared_ptr<MemorySink> sink = std::make_shared<MemorySink>();
    Registration sinkAdded = TraceService::get().addSink(sink);
};

TEST_F(ModuleManagerTest, groupWithoutPhasesSucceeds)
{
    EXPECT_EQ(CModuleManager_RunGroup(5, 1), 0U);
}

TEST_F(ModuleManagerTest, phasesOfTheGroupRunInOrderForTheChannel)
{
    const auto first = phase(5, "b", 0);
    const auto other = phase(6, "x", 0);
    const auto second = phase(5, "a", 0x7FFF);
    EXPECT_EQ(CModuleManager_RunGroup(5, 2), 0U);
    EXPECT_THAT(calls, ElementsAre("b 2", "a 2"));
    EXPECT_THAT(manager.phases(5), ElementsAre("b", "a"));
    EXPECT_TRUE(traced().empty());
}

TEST_F(ModuleManagerTest, firstFailureEndsTheRunWithItsCode)
{
    const auto first = phase(5, "first", 0);
    const auto failing = phase(5, "failing", 0x8000);
    const auto behind = phase(5, "behind", 0x9000);
    EXPECT_EQ(CModuleManager_RunGroup(5, 1), 0x8000U);
    EXPECT_THAT(calls, ElementsAre("first 1", "failing 1"));
    EXPECT_THAT(traced(), ElementsAre("ZYR.ModuleManager 1 phase failing failed for channel 1 with 32768"));
}

TEST_F(ModuleManagerTest, exceptionOfAPhaseIsAFailure)
{
    const auto failing = manager.registerPhase(
        5, "throwing", [](std::uint32_t) -> std::uint32_t { throw std::runtime_error("no clock"); });
    EXPECT_EQ(CModuleManager_RunGroup(5, 1), 0x8000U);
    EXPECT_THAT(
        traced(),
        ElementsAre("ZYR.ModuleManager 1 phase throwing failed for channel 1 with the exception: no clock"));
}

TEST_F(ModuleManagerTest, foreignExceptionOfAPhaseIsAFailure)
{
    const auto failing = manager.registerPhase(5, "odd", [](std::uint32_t) -> std::uint32_t { throw 1; });
    EXPECT_EQ(CModuleManager_RunGroup(5, 1), 0x8000U);
    EXPECT_THAT(traced(),
                ElementsAre("ZYR.ModuleManager 1 phase odd failed for channel 1 with an exception"));
}

TEST_F(ModuleManagerTest, withdrawnPhaseDoesNotRun)
{
    auto gone = phase(5, "gone", 0x8000);
    const auto stays = phase(5, "stays", 0);
    gone.withdraw();
    EXPECT_EQ(CModuleManager_RunGroup(5, 1), 0U);
    EXPECT_THAT(calls, ElementsAre("stays 1"));
}

TEST_F(ModuleManagerTest, emptyPhaseIsRefused)
{
    EXPECT_THROW(static_cast<void>(manager.registerPhase(5, "empty", nullptr)), std::invalid_argument);
}

TEST_F(ModuleManagerTest, phaseMayRunAnotherGroupAndItsOwn)
{
    const auto inner = phase(6, "inner", 0x8001);
    int depth = 0;
    const auto outer = manager.registerPhase(5, "outer", [&](std::uint32_t channel) -> std::uint32_t {
        return ++depth == 3 ? CModuleManager_RunGroup(6, channel) : CModuleManager_RunGroup(5, channel);
    });
    EXPECT_EQ(CModuleManager_RunGroup(5, 1), 0x8001U);
    EXPECT_EQ(depth, 3);
    EXPECT_THAT(calls, ElementsAre("inner 1"));
}

TEST_F(ModuleManagerTest, phaseMayWithdrawItselfAndOthersAndAddNewOnes)
{
    std::optional<Registration> own;
    std::optional<Registration> next;
    std::optional<Registration> added;
    own = manager.registerPhase(5, "own", [&](std::uint32_t) {
        calls.emplace_back("own");
        added = phase(5, "added", 0);
        next.reset();
        own.reset();
        return std::uint32_t{0};
    });
    next = phase(5, "next", 0x8000);
    EXPECT_EQ(CModuleManager_RunGroup(5, 1), 0U);
    EXPECT_THAT(calls, ElementsAre("own"));
    EXPECT_EQ(CModuleManager_RunGroup(5, 1), 0U);
    EXPECT_THAT(calls, ElementsAre("own", "added 1"));
}

TEST_F(ModuleManagerTest, phasesMayComeAndGoWhileManyThreadsRunThem)
{
    constexpr int kRuns = 200;
    int counted = 0; // guarded by the manager: phases never run two at once
    const auto counting = manager.registerPhase(5, "counting", [&](std::uint32_t) {
        ++counted;
        return std::uint32_t{0};
    });
    std::atomic<int> running{4};
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (int run = 0; run < kRuns; ++run) {
                    CModuleManager_RunGroup(5, 1);
                }
                --running;
            });
        }
        threads.emplace_back([&] {
            while (running > 0) {
                int local = 0;
                const auto passing = manager.registerPhase(5, "passing", [&local](std::uint32_t) {
                    ++local;
                    return std::uint32_t{0};
                });
            }
        });
    }
    EXPECT_EQ(counted, 4 * kRuns);
}

} // namespace
