#include "AlarmHandlerTopApiDouble.h"
#include "CommandTest.h"
#include "TiGetEventsImpl.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class TiGetEventsTest : public zyr_test::CommandTest
{
  protected:
    TiGetEventsTest()
    {
        publish(alarmHandler);
        EXPECT_EQ(impl.initialize(2), eTI_S_OK);
        transcript.clear();
    }

    zyr_test::AlarmHandlerTopApiDouble alarmHandler{transcript, "IAlarmHandlerTopApi"};
    TiGetEventsImpl impl;
};

TEST_F(TiGetEventsTest, NoAlarmsPrintTheHeadAlone)
{
    const TiGetEvents::Response response = tell(impl.execute({0}));
    EXPECT_EQ(response.requestOption, 0);
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getAlarmsByOption(0)
result 0x0 0 ""
prints Events: \n
)");
}

TEST_F(TiGetEventsTest, AlarmsOfOption1PrintInTheirOwnOrderWithTheFlagAsDigit)
{
    alarmHandler.onGetAlarmsByOption = {0U, {{"link", true, 7, 2}, {"rx", false, 0, 1}}};
    const TiGetEvents::Response response = tell(impl.execute({1}));
    EXPECT_EQ(response.requestOption, 1);
    EXPECT_EQ(response.events.size(), 2U);
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getAlarmsByOption(1)
result 0x0 0 ""
prints Events: \nAlarmEvent: eventName: link, radioChannelId: 2, isActive: 1, numberOfTimesEventHasBeenActive: 7\nAlarmEvent: eventName: rx, radioChannelId: 1, isActive: 0, numberOfTimesEventHasBeenActive: 0\n
)");
}

TEST_F(TiGetEventsTest, Option2AndAbovePrintNothingOnSuccess)
{
    alarmHandler.onGetAlarmsByOption = {0U, {{"link", true, 7, 2}}};
    const TiGetEvents::Response response = impl.execute({2});
    EXPECT_EQ(response.printResponse(), "");
    EXPECT_EQ(response.requestOption, 2);
    EXPECT_EQ(response.events.size(), 1U);
    EXPECT_EQ(impl.execute({2147483647}).printResponse(), "");
}

TEST_F(TiGetEventsTest, NegativeOptionIsPassedOnAndPrinted)
{
    const TiGetEvents::Response response = tell(impl.execute({-5}));
    EXPECT_EQ(response.requestOption, -5);
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getAlarmsByOption(-5)
result 0x0 0 ""
prints Events: \n
)");
}

TEST_F(TiGetEventsTest, FailureKeepsOptionAndEventsButPrintsTheResultLineAlone)
{
    alarmHandler.onGetAlarmsByOption = {0x8000, {{"link", true, 7, 2}}};
    const TiGetEvents::Response response = tell(impl.execute({3}));
    EXPECT_EQ(response.requestOption, 3);
    ASSERT_EQ(response.events.size(), 1U);
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getAlarmsByOption(3)
1 ZYR.TI.TiGetEvents: TI.GetEvents failed to get alarms
result 0x8000 4 "TI.GetEvents failed to get alarms"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.GetEvents failed to get alarms
)");
}

TEST_F(TiGetEventsTest, HandlersGreatestSuccessComesOutAsPlainSuccess)
{
    alarmHandler.onGetAlarmsByOption = 0x7FFF;
    EXPECT_EQ(outcome(impl.execute({0})), R"(result 0x0 0 "")");
}

TEST_F(TiGetEventsTest, EntryIsTracedWithoutText)
{
    setTraceLevel("ZYR.TI.TiGetEvents", 7);
    impl.execute({0});
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiGetEvents:
IAlarmHandlerTopApi.getAlarmsByOption(0)
)");
}

TEST_F(TiGetEventsTest, InitialiseIgnoresTheNumberOfChannels)
{
    EXPECT_EQ(impl.initialize(0), 0);
    EXPECT_EQ(impl.initialize(3), 0);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiGetEventsTest, InitialiseFailsWithoutAnAlarmHandler)
{
    withdraw("IAlarmHandlerTopApi");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.TiGetEvents:  Error getting interface to IAlarmHandlerTopApi
)");
}

} // namespace
} // namespace zyr_top_api
