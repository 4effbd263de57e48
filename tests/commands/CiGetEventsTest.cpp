#include "AlarmHandlerTopApiDouble.h"
#include "CiGetEventsImpl.h"
#include "CommandTest.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CiGetEventsTest : public zyr_test::CommandTest
{
  protected:
    CiGetEventsTest()
    {
        publish(alarmHandler);
        transcript.clear();
    }

    zyr_test::AlarmHandlerTopApiDouble alarmHandler{transcript, "IAlarmHandlerTopApi"};
    CiGetEventsImpl impl;
};

TEST_F(CiGetEventsTest, NoAlarmsGiveAnEmptySuccess)
{
    enrol<CiGetEventsImpl>();
    const CiGetEvents::Response response = tell(ciGetEvents({}));
    EXPECT_TRUE(response.events.empty());
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getAlarms()
result 0x0 0 ""
prints Sent\n
)");
}

TEST_F(CiGetEventsTest, AlarmsComeOutAsTheHandlerGaveThem)
{
    enrol<CiGetEventsImpl>();
    alarmHandler.onGetAlarms = {0U, {{"link", true, 7, 2}, {"", false, -1, 0}}};
    const CiGetEvents::Response response = ciGetEvents({});
    ASSERT_EQ(response.events.size(), 2U);
    EXPECT_EQ(response.events[0].eventName, "link");
    EXPECT_TRUE(response.events[0].isActive);
    EXPECT_EQ(response.events[0].numberOfTimesEventHasBeenActive, 7);
    EXPECT_EQ(response.events[0].radioChannelId, 2U);
    EXPECT_EQ(response.events[1].eventName, "");
    EXPECT_FALSE(response.events[1].isActive);
    EXPECT_EQ(response.events[1].numberOfTimesEventHasBeenActive, -1);
    EXPECT_EQ(response.events[1].radioChannelId, 0U);
}

TEST_F(CiGetEventsTest, FrameShowsTheRequestWithTwoBlanksAndNoEventOfTheResponse)
{
    enrol<CiGetEventsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CiGetEvents", 7);
    alarmHandler.onGetAlarms = {0U, {{"link", true, 7, 2}}};
    ciGetEvents({});
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CI.GetEvents Request:  Received\n
6 ZYR.TI.CiGetEvents:
IAlarmHandlerTopApi.getAlarms()
5 ZYR.COMM: CI.GetEvents Response: Sent\n\n----------------------------------------------------\n
)");
}

TEST_F(CiGetEventsTest, HandlersFailureKeepsTheEventsThatWereFilled)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    alarmHandler.onGetAlarms = {0x8000, {{"link", true, 7, 2}}};
    const CiGetEvents::Response response = tell(impl.execute({}));
    ASSERT_EQ(response.events.size(), 1U);
    EXPECT_EQ(response.events[0].eventName, "link");
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getAlarms()
1 ZYR.TI.CiGetEvents: CI.GetEvents failed to get alarms
result 0x8000 4 "CI.GetEvents failed to get alarms"
prints Sent\n
)");
}

TEST_F(CiGetEventsTest, HandlersGreatestSuccessComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    alarmHandler.onGetAlarms = 0x7FFF;
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getAlarms()
result 0x0 0 ""
prints Sent\n
)");
}

TEST_F(CiGetEventsTest, HandlersOwnFailureCodeIsNotPassedOn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    alarmHandler.onGetAlarms = 0xA202;
    EXPECT_EQ(outcome(impl.execute({})), R"(result 0x8000 4 "CI.GetEvents failed to get alarms")");
}

TEST_F(CiGetEventsTest, InitialiseIgnoresTheNumberOfChannels)
{
    setTraceLevel("ZYR.TI.CiGetEvents", 7);
    EXPECT_EQ(impl.initialize(0), 0);
    EXPECT_EQ(impl.initialize(3), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CiGetEvents:
6 ZYR.TI.CiGetEvents:
)");
}

TEST_F(CiGetEventsTest, InitialiseFailsWithoutAnAlarmHandler)
{
    withdraw("IAlarmHandlerTopApi");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CiGetEvents:  Error getting interface to IAlarmHandlerTopApi
)");
}

} // namespace
} // namespace zyr_top_api
