#include "CiGetEventsImpl.h"
#include "CiGetFastEventsImpl.h"
#include "CiReleaseFastEventsRequestsImpl.h"
#include "CommandMessageBase.h"
#include "CriCalibrateDspPpsImpl.h"
#include "CriEnableAcmImpl.h"
#include "CriGetCalibrationStatusDspPpsImpl.h"
#include "CriGetHopLengthTimeDspPpsImpl.h"
#include "CriManagePathLatencyImpl.h"
#include "CriSetOutputModeDspPpsImpl.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "CriSetSourceDspPpsImpl.h"
#include "SlotOrder.h"
#include "TiGetAllCommandsDataImpl.h"
#include "TiGetEventsImpl.h"
#include "TiManagePathLatencyCompensationImpl.h"
#include "TiManageRealTimeClockImpl.h"
#include "TiSetEventsImpl.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace zyr_top_api
{
namespace
{

using zyr_test::slotOf;

template <class XImpl>
class CommandLayoutTest : public ::testing::Test
{};

using CommandsWithVirtualExecute =
    ::testing::Types<CriEnableAcmImpl, CiGetEventsImpl, CiGetFastEventsImpl, CiReleaseFastEventsRequestsImpl,
                     TiGetEventsImpl, TiSetEventsImpl, TiGetAllCommandsDataImpl, CriCalibrateDspPpsImpl,
                     CriGetCalibrationStatusDspPpsImpl, CriGetHopLengthTimeDspPpsImpl, CriSetSourceDspPpsImpl,
                     CriSetOutputModeDspPpsImpl, CriManagePathLatencyImpl,
                     TiManagePathLatencyCompensationImpl>;
TYPED_TEST_SUITE(CommandLayoutTest, CommandsWithVirtualExecute);

TYPED_TEST(CommandLayoutTest, ExecuteStandsBehindTheDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<TypeParam>);
    EXPECT_EQ(slotOf(&TypeParam::execute), 2);
}

TYPED_TEST(CommandLayoutTest, InitializeIsAPlainMember)
{
    EXPECT_EQ(slotOf(&TypeParam::initialize), -1);
}

TEST(NearEndLayoutTest, ExecuteIsAPlainMember)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CriSetRadioChannelNearEndImpl>);
    EXPECT_EQ(slotOf(&CriSetRadioChannelNearEndImpl::execute), -1);
    EXPECT_EQ(slotOf(&CriSetRadioChannelNearEndImpl::initialize), -1);
}

TEST(PathLatencyCompensationLayoutTest, StepsStandBehindExecuteInTheirOrder)
{
    using I = TiManagePathLatencyCompensationImpl;
    EXPECT_EQ(slotOf(&I::onePpsAsymmetryCompensationSet), 3);
    EXPECT_EQ(slotOf(&I::adjFifoSamplesSet), 4);
    EXPECT_EQ(slotOf(&I::fffFifoSamplesSet), 5);
    EXPECT_EQ(slotOf(&I::getCurrentValues), 6);
}

TEST(RealTimeClockLayoutTest, HardwareStandsBehindTheDestructorAndExecuteIsAPlainMember)
{
    using I = TiManageRealTimeClockImpl;
    EXPECT_TRUE(std::has_virtual_destructor_v<I>);
    EXPECT_EQ(slotOf(&I::writeRealTimeClock), 2);
    EXPECT_EQ(slotOf(&I::readRealTimeClock), 3);
    EXPECT_EQ(slotOf(&I::setSystemTime), 4);
    EXPECT_EQ(slotOf(&I::getSystemTime), 5);
    EXPECT_EQ(slotOf(&I::hasRealTimeClock), 6);
    EXPECT_EQ(slotOf(&I::execute), -1);
    EXPECT_EQ(slotOf(&I::initialize), -1);
    static_assert(sizeof(I) == sizeof(void*));
}

TEST(ResponseLayoutTest, PrintResponseStandsBehindTheDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<BaseResponse>);
    EXPECT_EQ(slotOf(&BaseResponse::printResponse), 2);
    EXPECT_EQ(slotOf(&StandardResponse::printResponse), 2);
    EXPECT_EQ(slotOf(&CiGetFastEvents::Response::printResponse), 2);
    EXPECT_EQ(slotOf(&TiGetEvents::Response::printResponse), 2);
}

TEST(CommandMessageBaseLayoutTest, DescriptionStandsBehindTheDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CommandMessageBase>);
    EXPECT_EQ(slotOf(&CommandMessageBase::getCommandDescription), 2);
}

class SelfDescribing : public CommandMessageBase
{
  public:
    std::string getCommandDescription() override { return "text"; }
    virtual int execute(int command) { return command; }
};

TEST(CommandMessageBaseLayoutTest, DescriptionStandsBeforeExecuteOfACommandThatHasIt)
{
    EXPECT_EQ(slotOf(&SelfDescribing::getCommandDescription), 2);
    EXPECT_EQ(slotOf(&SelfDescribing::execute), 3);
}

} // namespace
} // namespace zyr_top_api
