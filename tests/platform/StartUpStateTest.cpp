#include "StartUpState.h"

#include <gtest/gtest.h>

namespace
{

using zyr_platform::StartUpState;
using State = Zyr::ZyrInitState;

TEST(StartUpStateTest, processStartsInNormalOperation)
{
    EXPECT_TRUE(Zyr::isZyrInNormalOperation());
    EXPECT_FALSE(Zyr::isWarmRestartInProgress());
    EXPECT_FALSE(Zyr::isColdRestartInProgress());
    EXPECT_EQ(Zyr::getInitState(), "NormalOperation");
}

TEST(StartUpStateTest, warmRestartIsThatAlone)
{
    const StartUpState state(State::WarmRestart);
    EXPECT_TRUE(Zyr::isWarmRestartInProgress());
    EXPECT_FALSE(Zyr::isColdRestartInProgress());
    EXPECT_FALSE(Zyr::isZyrInNormalOperation());
    EXPECT_EQ(Zyr::getInitState(), "WarmRestart");
}

TEST(StartUpStateTest, coldRestartIsThatAlone)
{
    const StartUpState state(State::ColdRestart);
    EXPECT_FALSE(Zyr::isWarmRestartInProgress());
    EXPECT_TRUE(Zyr::isColdRestartInProgress());
    EXPECT_FALSE(Zyr::isZyrInNormalOperation());
    EXPECT_EQ(Zyr::getInitState(), "ColdRestart");
}

TEST(StartUpStateTest, stateCanBeLeftInTheMeantimeAndTheOneBeforeComesBack)
{
    const StartUpState cold(State::ColdRestart);
    {
        const StartUpState warm(State::WarmRestart);
        Zyr::setInitState(State::NormalOperation);
        EXPECT_EQ(StartUpState::current(), State::NormalOperation);
    }
    EXPECT_EQ(StartUpState::current(), State::ColdRestart);
}

TEST(StartUpStateTest, stateOutsideTheEnumerationIsNoneOfTheThree)
{
    const StartUpState state(static_cast<State>(3));
    EXPECT_FALSE(Zyr::isWarmRestartInProgress());
    EXPECT_FALSE(Zyr::isColdRestartInProgress());
    EXPECT_FALSE(Zyr::isZyrInNormalOperation());
    EXPECT_EQ(Zyr::getInitState(), "Unknown");
}

} // namespace
