#include "NodeWide.h"

#include "StorageVariable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace
{

using zyr_top_api::NodeWide;
using zyr_top_api::StorageVariable;

struct Thing
{
    int number = 7;
};

template <class Function>
std::string complaintOf(Function function)
{
    try {
        function();
    } catch (const std::out_of_range& complaint) {
        return complaint.what();
    }
    return "none";
}

TEST(StorageVariableTest, GivesTheValueNowAndComplainsByName)
{
    StorageVariable variable("common.minTemp");
    EXPECT_EQ(complaintOf([&] { static_cast<void>(*variable); }), "common.minTemp of the node");
    std::int32_t content = -40;
    variable.set(&content);
    content = -33;
    EXPECT_EQ(*variable, -33);
}

TEST(NodeWideTest, IsEmptyAtFirst)
{
    const NodeWide<Thing> empty;
    EXPECT_EQ(empty.find(), nullptr);
}

TEST(NodeWideTest, ReachingForWhatWasNotFoundThrowsItsName)
{
    const NodeWide<Thing> empty;
    EXPECT_EQ(complaintOf([&] { static_cast<void>(*empty); }), "Thing of the node");
    EXPECT_EQ(complaintOf([&] { static_cast<void>(empty->number); }), "Thing of the node");
}

TEST(NodeWideTest, GivesWhatWasFoundUntilNothingIs)
{
    Thing thing;
    NodeWide<Thing> slot;
    slot.set(&thing);
    EXPECT_EQ(slot.find(), &thing);
    EXPECT_EQ(slot->number, 7);
    EXPECT_EQ(&*slot, &thing);
    slot.set(nullptr);
    EXPECT_THROW(static_cast<void>(*slot), std::out_of_range);
}

} // namespace
