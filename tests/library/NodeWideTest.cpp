#include "NodeWide.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

using zyr_top_api::NodeWide;

struct Thing
{
    int number = 7;
};

TEST(NodeWideTest, IsEmptyAtFirst)
{
    const NodeWide<Thing> empty;
    EXPECT_EQ(empty.find(), nullptr);
}

TEST(NodeWideTest, ReachingForWhatWasNotFoundThrows)
{
    const NodeWide<Thing> empty;
    EXPECT_THROW(static_cast<void>(*empty), std::out_of_range);
    EXPECT_THROW(static_cast<void>(empty->number), std::out_of_range);
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
