#include "Drivers.h"

#include "CDriver.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{

using zyr_platform::DriverFunctions;
using zyr_platform::Drivers;

class DriversTest : public testing::Test
{
  protected:
    static CDriverHandle handleOf(const char* name)
    {
        CDriverHandle handle;
        EXPECT_EQ(CDriver_GetInterface(&handle, name), 0U);
        return handle;
    }

    static DriverFunctions cell(std::uint32_t& value)
    {
        return {[&value](std::uint32_t& read) {
                    read = value;
                    return std::uint32_t{1};
                },
                [&value](std::uint32_t written) {
                    value = written;
                    return std::uint32_t{2};
                }};
    }

    Drivers& drivers = Drivers::get();
    std::uint32_t value = 5;
};

TEST_F(DriversTest, handleReadsAndWrites)
{
    const auto added = drivers.add("channel.1.xpic.connected", cell(value));
    const CDriverHandle handle = handleOf("channel.1.xpic.connected");
    EXPECT_EQ(handle.reserved, nullptr);
    std::uint32_t read = 0;
    EXPECT_EQ(handle.read(handle.context, &read), 1U);
    EXPECT_EQ(read, 5U);
    EXPECT_EQ(handle.write(handle.context, 9), 2U);
    EXPECT_EQ(value, 9U);
}

TEST_F(DriversTest, unknownDriverFailsAndLeavesTheHandleEmpty)
{
    const auto added = drivers.add("known", cell(value));
    CDriverHandle handle;
    EXPECT_EQ(CDriver_GetInterface(&handle, "unknown"), 0x8000U);
    EXPECT_EQ(handle.context, nullptr);
    EXPECT_EQ(handle.write, nullptr);
    EXPECT_EQ(handle.read, nullptr);
}

TEST_F(DriversTest, missingArgumentFails)
{
    const auto added = drivers.add("known", cell(value));
    CDriverHandle handle;
    EXPECT_EQ(CDriver_GetInterface(nullptr, "known"), 0x8000U);
    EXPECT_EQ(CDriver_GetInterface(&handle, nullptr), 0x8000U);
    handle = handleOf("known");
    std::uint32_t read = 0;
    EXPECT_EQ(handle.read(nullptr, &read), 0x8000U);
    EXPECT_EQ(handle.read(handle.context, nullptr), 0x8000U);
    EXPECT_EQ(handle.write(nullptr, 1), 0x8000U);
}

TEST_F(DriversTest, functionThatIsLeftOutOrThrowsFails)
{
    const auto none = drivers.add("none", {});
    const auto throwing = drivers.add(
        "throwing", {[](std::uint32_t&) -> std::uint32_t { throw std::runtime_error("x"); }, nullptr});
    std::uint32_t read = 0;
    CDriverHandle handle = handleOf("none");
    EXPECT_EQ(handle.read(handle.context, &read), 0x8000U);
    EXPECT_EQ(handle.write(handle.context, 1), 0x8000U);
    handle = handleOf("throwing");
    EXPECT_EQ(handle.read(handle.context, &read), 0x8000U);
}

TEST_F(DriversTest, doubledNameIsRefusedAndTheFirstStays)
{
    const auto added = drivers.add("doubled", cell(value));
    std::uint32_t other = 0;
    try {
        const auto doubled = drivers.add("doubled", cell(other));
        ADD_FAILURE();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "there is already a driver of the name \"doubled\"");
    }
    const CDriverHandle handle = handleOf("doubled");
    EXPECT_EQ(handle.write(handle.context, 7), 2U);
    EXPECT_EQ(value, 7U);
}

TEST_F(DriversTest, handleOfAWithdrawnDriverFailsUntilTheNameComesBack)
{
    auto added = drivers.add("withdrawn", cell(value));
    const CDriverHandle handle = handleOf("withdrawn");
    added.withdraw();
    CDriverHandle later;
    EXPECT_EQ(CDriver_GetInterface(&later, "withdrawn"), 0x8000U);
    EXPECT_EQ(handle.write(handle.context, 7), 0x8000U);
    EXPECT_EQ(value, 5U);
    added = drivers.add("withdrawn", cell(value));
    EXPECT_EQ(handle.write(handle.context, 7), 2U);
    EXPECT_EQ(value, 7U);
}

TEST_F(DriversTest, driversMayComeAndGoWhileTheyAreUsed)
{
    std::atomic<int> inUse{2};
    {
        const auto first = drivers.add("come", {});
        const CDriverHandle handle = handleOf("come");
        std::vector<std::jthread> threads;
        for (int i = 0; i < 2; ++i) {
            threads.emplace_back([&inUse, handle] {
                for (int use = 0; use < 500; ++use) {
                    std::uint32_t read = 0;
                    handle.read(handle.context, &read);
                    handle.write(handle.context, 1);
                }
                --inUse;
            });
        }
        threads.emplace_back([&] {
            while (inUse > 0) {
                std::uint32_t ownValue = 0;
                const auto passing = drivers.add("come.too", cell(ownValue));
                CDriverHandle other;
                EXPECT_EQ(CDriver_GetInterface(&other, "come.too"), 0U);
                EXPECT_EQ(other.write(other.context, 3), 2U);
            }
        });
    }
    CDriverHandle handle;
    EXPECT_EQ(CDriver_GetInterface(&handle, "come"), 0x8000U);
}

} // namespace
