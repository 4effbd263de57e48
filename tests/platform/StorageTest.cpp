#include "Storage.h"

#include "CStorageManager.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <thread>

namespace
{

using zyr_platform::Storage;

class StorageTest : public testing::Test
{
  protected:
    ~StorageTest() override { storage.remove("test.value"); }

    static std::int32_t* find(const char* name)
    {
        void* address = nullptr;
        return CStorageManager_GetVariableContentAddressByName(name, &address) < 0x8000
                   ? static_cast<std::int32_t*>(address)
                   : nullptr;
    }

    Storage& storage = Storage::get();
};

TEST_F(StorageTest, variableIsReadThroughItsAddress)
{
    storage.set("test.value", -33);
    const std::int32_t* const content = find("test.value");
    ASSERT_NE(content, nullptr);
    EXPECT_EQ(*content, -33);
    storage.set("test.value", std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(*content, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(storage.value("test.value"), std::numeric_limits<std::int32_t>::min());
}

TEST_F(StorageTest, unknownVariableFailsAndLeavesTheAddressAlone)
{
    int own = 0;
    void* address = &own;
    EXPECT_EQ(CStorageManager_GetVariableContentAddressByName("test.unknown", &address), 0x8000U);
    EXPECT_EQ(address, &own);
    EXPECT_FALSE(storage.value("test.unknown").has_value());
    EXPECT_FALSE(storage.remove("test.unknown"));
}

TEST_F(StorageTest, missingArgumentFails)
{
    void* address = nullptr;
    EXPECT_EQ(CStorageManager_GetVariableContentAddressByName(nullptr, &address), 0x8000U);
    storage.set("test.value", 1);
    EXPECT_EQ(CStorageManager_GetVariableContentAddressByName("test.value", nullptr), 0x8000U);
}

TEST_F(StorageTest, removedVariableIsNotFoundButItsContentStaysReadable)
{
    storage.set("test.value", 7);
    const std::int32_t* const content = find("test.value");
    ASSERT_NE(content, nullptr);
    EXPECT_TRUE(storage.remove("test.value"));
    EXPECT_FALSE(storage.remove("test.value"));
    EXPECT_EQ(find("test.value"), nullptr);
    EXPECT_FALSE(storage.value("test.value").has_value());
    EXPECT_EQ(*content, 7);
    storage.set("test.value", 8);
    EXPECT_EQ(find("test.value"), content);
    EXPECT_EQ(*content, 8);
}

TEST_F(StorageTest, contentsStayInPlaceWhenOthersCome)
{
    storage.set("test.value", 7);
    const std::int32_t* const content = find("test.value");
    for (int i = 0; i < 1000; ++i) {
        storage.set("test.many." + std::to_string(i), i);
    }
    EXPECT_EQ(find("test.value"), content);
    EXPECT_EQ(*content, 7);
    for (int i = 0; i < 1000; ++i) {
        EXPECT_TRUE(storage.remove("test.many." + std::to_string(i)));
    }
}

TEST_F(StorageTest, readersSeeOneOfTheNumbersThatWereSet)
{
    storage.set("test.value", 0x0101'0101);
    std::int32_t* const content = find("test.value");
    ASSERT_NE(content, nullptr);
    std::atomic<bool> isRead{false};
    std::jthread writer([&] {
        while (!isRead) {
            storage.set("test.value", 0x0202'0202);
            storage.set("test.value", 0x0101'0101);
        }
    });
    for (int i = 0; i < 2000; ++i) {
        const std::int32_t value = std::atomic_ref(*content).load(std::memory_order_relaxed);
        EXPECT_TRUE(value == 0x0101'0101 || value == 0x0202'0202);
        EXPECT_TRUE(storage.value("test.value").has_value());
    }
    isRead = true;
}

} // namespace
