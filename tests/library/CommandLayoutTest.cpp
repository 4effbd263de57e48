#include "CiGetEventsImpl.h"
#include "CiGetFastEventsImpl.h"
#include "CiReleaseFastEventsRequestsImpl.h"
#include "CommandMessageBase.h"
#include "CriEnableAcmImpl.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "SlotOrder.h"
#include "TiGetAllCommandsDataImpl.h"
#include "TiGetEventsImpl.h"
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
                     TiGetEventsImpl, TiSetEventsImpl, TiGetAllCommandsDataImpl>;
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
