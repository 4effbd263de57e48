#include "CiGetFastEvents.h"
#include "CommandList.h"
#include "CommandMessageBase.h"
#include "CriEnableAcmImpl.h"
#include "SlotOrder.h"
#include "TiManageMimoImpl.h"
#include "TiManagePathLatencyCompensationImpl.h"
#include "TiManageRealTimeClockImpl.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

// What callers and those that derive from a command rely on: the places of virtual operations, of every
// command of the list.

namespace
{

using namespace zyr_top_api;
using zyr_test::slotOf;

template <class... Implementations>
testing::Types<Implementations...> typesOf(zyr_registration::TypeList<Implementations...>);
using Commands = decltype(typesOf(zyr_registration::CommandList()));

struct NameOfCommand
{
    template <class XImpl>
    static std::string GetName(int)
    {
        return std::string(XImpl::identity.className);
    }
};

// The place of `execute`, -1 where it isn't virtual. By hand, for the commands to come too.
std::ptrdiff_t slotOfExecute(std::string_view className)
{
    if (className == "CriSetRadioChannelNearEnd" || className == "TiManageRealTimeClock") {
        return -1;
    }
    return className == "TiManageRadioChannelStatus" ? 3 : 2; // behind the description of itself
}

template <class XImpl>
class CommandLayoutTest : public testing::Test
{};

TYPED_TEST_SUITE(CommandLayoutTest, Commands, NameOfCommand);

TYPED_TEST(CommandLayoutTest, ExecuteStandsBehindTheDestructorOrIsAPlainMember)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<TypeParam>);
    EXPECT_EQ(slotOf(&TypeParam::execute), slotOfExecute(TypeParam::identity.className));
}

TYPED_TEST(CommandLayoutTest, InitializeIsAPlainMember)
{
    EXPECT_EQ(slotOf(&TypeParam::initialize), -1);
}

TYPED_TEST(CommandLayoutTest, PrintOfTheResponseStandsBehindTheDestructor)
{
    using Response = typename TypeParam::Response;
    EXPECT_TRUE((std::is_base_of_v<BaseResponse, Response>));
    EXPECT_TRUE(std::has_virtual_destructor_v<Response>);
    EXPECT_EQ(slotOf(&Response::printResponse), 2);
}

TEST(PathLatencyCompensationLayoutTest, StepsStandBehindExecuteInTheirOrder)
{
    using I = TiManagePathLatencyCompensationImpl;
    EXPECT_EQ(slotOf(&I::onePpsAsymmetryCompensationSet), 3);
    EXPECT_EQ(slotOf(&I::adjFifoSamplesSet), 4);
    EXPECT_EQ(slotOf(&I::fffFifoSamplesSet), 5);
    EXPECT_EQ(slotOf(&I::getCurrentValues), 6);
}

TEST(MimoLayoutTest, StepsStandBehindExecuteInTheirOrder)
{
    using I = TiManageMimoImpl;
    EXPECT_EQ(slotOf(&I::rxChainDelaySet), 3);
    EXPECT_EQ(slotOf(&I::diversityMuteSet), 4);
    EXPECT_EQ(slotOf(&I::configurationSet), 5);
    EXPECT_EQ(slotOf(&I::statusGet), 6);
    EXPECT_EQ(slotOf(&I::crossConnectDelayCalibrationStart), 7);
    EXPECT_EQ(slotOf(&I::crossConnectDelayCalibrationStatusGet), 8);
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

TEST(BaseLayoutTest, PrintOfTheResponseStandsBehindTheDestructor)
{
    EXPECT_EQ(slotOf(&BaseResponse::printResponse), 2);
    EXPECT_EQ(slotOf(&StandardResponse::printResponse), 2);
}

TEST(BaseLayoutTest, DescriptionStandsBehindTheDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CommandMessageBase>);
    EXPECT_EQ(slotOf(&CommandMessageBase::getCommandDescription), 2);
}

// The number of channels, and two places of one pointer each.
TEST(BaseLayoutTest, CommandHoldsItsNumberOfChannelsAndAPointerAChannel)
{
    EXPECT_EQ(sizeof(CriEnableAcmImpl), sizeof(void*) * 4);
}

} // namespace
