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
    int m_first = 0;
    int m_second = 0;
};

TEST_F(RegistrationTest, withdrawsOnceWhenItGoes)
{
    {
        const Registration registration = counting(m_first);
        EXPECT_EQ(m_first, 0);
    }
    EXPECT_EQ(m_first, 1);
}

TEST_F(RegistrationTest, movedFromOneWithdrawsNothing)
{
    {
        std::optional<Registration> source = counting(m_first);
        const Registration target = std::move(*source);
        source.reset();
        EXPECT_EQ(m_first, 0);
    }
    EXPECT_EQ(m_first, 1);
}

TEST_F(RegistrationTest, assignmentWithdrawsWhatItHeld)
{
    Registration registration = counting(m_first);
    registration = counting(m_second);
    EXPECT_EQ(m_first, 1);
    EXPECT_EQ(m_second, 0);
    registration = Registration();
    EXPECT_EQ(m_second, 1);
}

TEST_F(RegistrationTest, selfAssignmentKeepsIt)
{
    Registration registration = counting(m_first);
    Registration& same = registration;
    registration = std::move(same);
    EXPECT_EQ(m_first, 0);
}

} // namespace
