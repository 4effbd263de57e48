#include "PerChannel.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace zyr_top_api
{
namespace
{

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

TEST(PerChannelTest, IsEmptyAfterConstruction)
{
    const PerChannel<int> collaborators;
    EXPECT_EQ(collaborators.find(1), nullptr);
    EXPECT_EQ(collaborators.find(2), nullptr);
    EXPECT_EQ(complaintOf([&] { collaborators[1]; }), "no collaborator for radio channel 1");
}

TEST(PerChannelTest, EachChannelGivesItsOwnCollaborator)
{
    int first = 10;
    int second = 20;
    PerChannel<int> collaborators;
    collaborators.set(1, &first);
    collaborators.set(2, &second);
    EXPECT_EQ(collaborators.find(1), &first);
    EXPECT_EQ(collaborators.find(2), &second);
    EXPECT_EQ(&collaborators[1], &first);
    EXPECT_EQ(&collaborators[2], &second);
}

TEST(PerChannelTest, OtherNumbersHaveNoCollaborator)
{
    int first = 10;
    int second = 20;
    PerChannel<int> collaborators;
    collaborators.set(1, &first);
    collaborators.set(2, &second);
    for (const std::uint32_t channel : {0U, 3U, 4294967295U}) {
        EXPECT_EQ(collaborators.find(channel), nullptr) << channel;
        EXPECT_EQ(complaintOf([&] { collaborators[channel]; }),
                  "no collaborator for radio channel " + std::to_string(channel));
    }
}

TEST(PerChannelTest, NullTakesTheCollaboratorAway)
{
    int first = 10;
    PerChannel<int> collaborators;
    collaborators.set(1, &first);
    collaborators.set(1, nullptr);
    EXPECT_EQ(collaborators.find(1), nullptr);
    EXPECT_EQ(complaintOf([&] { collaborators[1]; }), "no collaborator for radio channel 1");
}

TEST(PerChannelTest, StoringForAnotherNumberIsRefusedAndChangesNothing)
{
    int first = 10;
    PerChannel<int> collaborators;
    EXPECT_EQ(complaintOf([&] { collaborators.set(0, &first); }), "no radio channel 0");
    EXPECT_EQ(complaintOf([&] { collaborators.set(3, &first); }), "no radio channel 3");
    EXPECT_EQ(collaborators.find(1), nullptr);
    EXPECT_EQ(collaborators.find(2), nullptr);
}

} // namespace
} // namespace zyr_top_api
