#include "PerChannel.h"

#include "IPpsController.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace zyr_top_api
{
namespace
{

struct Amplifier
{
    int number = 0;
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

TEST(PerChannelTest, IsEmptyAfterConstruction)
{
    const PerChannel<Amplifier> collaborators;
    EXPECT_EQ(collaborators.find(1), nullptr);
    EXPECT_EQ(collaborators.find(2), nullptr);
    EXPECT_EQ(complaintOf([&] { collaborators[1]; }), "Amplifier of radio channel 1");
}

TEST(PerChannelTest, EachChannelGivesItsOwnCollaborator)
{
    Amplifier first{10};
    Amplifier second{20};
    PerChannel<Amplifier> collaborators;
    collaborators.set(1, &first);
    collaborators.set(2, &second);
    EXPECT_EQ(collaborators.find(1), &first);
    EXPECT_EQ(collaborators.find(2), &second);
    EXPECT_EQ(&collaborators[1], &first);
    EXPECT_EQ(&collaborators[2], &second);
}

TEST(PerChannelTest, OtherNumbersHaveNoCollaborator)
{
    Amplifier first{10};
    Amplifier second{20};
    PerChannel<Amplifier> collaborators;
    collaborators.set(1, &first);
    collaborators.set(2, &second);
    for (const std::uint32_t channel : {0U, 3U, 4294967295U}) {
        EXPECT_EQ(collaborators.find(channel), nullptr) << channel;
        EXPECT_EQ(complaintOf([&] { collaborators[channel]; }),
                  "Amplifier of radio channel " + std::to_string(channel));
    }
}

TEST(PerChannelTest, NullTakesTheCollaboratorAway)
{
    Amplifier first{10};
    PerChannel<Amplifier> collaborators;
    collaborators.set(1, &first);
    collaborators.set(1, nullptr);
    EXPECT_EQ(collaborators.find(1), nullptr);
    EXPECT_EQ(complaintOf([&] { collaborators[1]; }), "Amplifier of radio channel 1");
}

TEST(PerChannelTest, StoringForAnotherNumberIsRefusedAndChangesNothing)
{
    Amplifier first{10};
    PerChannel<Amplifier> collaborators;
    EXPECT_EQ(complaintOf([&] { collaborators.set(0, &first); }), "Amplifier of radio channel 0");
    EXPECT_EQ(complaintOf([&] { collaborators.set(3, &first); }), "Amplifier of radio channel 3");
    EXPECT_EQ(collaborators.find(1), nullptr);
    EXPECT_EQ(collaborators.find(2), nullptr);
}

TEST(PerChannelTest, ComplaintNamesTheInterfaceWithoutItsNamespaces)
{
    const PerChannel<nord::zyr::pps::IPpsController> collaborators;
    EXPECT_EQ(complaintOf([&] { collaborators[2]; }), "IPpsController of radio channel 2");
}

std::uint32_t doNothing(void*, std::uint32_t)
{
    return 0;
}

TEST(DriverPerChannelTest, HandlesAreEmptyUntilTheyAreStored)
{
    DriverPerChannel drivers;
    EXPECT_EQ(drivers[1].write, nullptr);
    CDriverHandle handle;
    handle.write = &doNothing;
    drivers.set(2, handle);
    EXPECT_EQ(drivers[1].write, nullptr);
    EXPECT_EQ(drivers[2].write, &doNothing);
}

TEST(DriverPerChannelTest, OtherChannelsAreRefused)
{
    DriverPerChannel drivers;
    EXPECT_EQ(complaintOf([&] { static_cast<void>(drivers[0]); }), "hardware driver of radio channel 0");
    EXPECT_EQ(complaintOf([&] { drivers.set(3, {}); }), "hardware driver of radio channel 3");
}

} // namespace
} // namespace zyr_top_api
