#include "Registration.h"

#include <gtest/gtest.h>

#include <optional>

namespace
{

using zyr_platform::Registration;

class RegistrationTest : public testing::Test
{
  protected:
    Registration counting(int& withdrawals)
    {
        return Registration([&withdrawals] { ++withdrawals; });
    }
    int first = 0;
    int second = 0;
};

TEST_F(RegistrationTest, withdrawsOnceWhenItGoes)
{
    {
        const Registration registration = counting(first);
        EXPECT_EQ(first, 0);
    }
    EXPECT_EQ(first, 1);
}

TEST_F(RegistrationTest, movedFromOneWithdrawsNothing)
{
    {
        std::optional<Registration> source = counting(first);
        const Registration target = std::move(*source);
        source.reset();
        EXPECT_EQ(first, 0);
    }
    EXPECT_EQ(first, 1);
}

TEST_F(RegistrationTest, assignmentWithdrawsWhatItHeld)
{
    Registration registration = counting(first);
    registration = counting(second);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
    registration = Registration();
    EXPECT_EQ(second, 1);
}

TEST_F(RegistrationTest, selfAssignmentKeepsIt)
{
    Registration registration = counting(first);
    Registration& same = registration;
    registration = std::move(same);
    EXPECT_EQ(first, 0);
}

} // namespace
