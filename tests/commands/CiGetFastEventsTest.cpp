#include "AlarmHandlerTopApiDouble.h"
#include "CiGetFastEventsImpl.h"
#include "CommandTest.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CiGetFastEventsTest : public zyr_test::CommandTest
{
  protected:
    CiGetFastEventsTest()
    {
        publish(alarmHandler);
        transcript.clear();
    }

    zyr_test::AlarmHandlerTopApiDouble alarmHandler{transcript, "IAlarmHandlerTopApi"};
    CiGetFastEventsImpl impl;
};

TEST_F(CiGetFastEventsTest, EmptyViewStillReachesTheHandler)
{
    enrol<CiGetFastEventsImpl>();
    const CiGetFastEvents::Response response = tell(ciGetFastEvents({}));
    EXPECT_TRUE(response.events.empty());
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getFastAlarms([])
result 0x0 0 ""
prints Events:\n
)");
}

TEST_F(CiGetFastEventsTest, ViewThatTheHandlerLeavesComesBackAsItWas)
{
    enrol<CiGetFastEventsImpl>();
    const CiGetFastEvents::Response response =
        tell(ciGetFastEvents({{{"link", true, 3, 1}, {"rx", false, 0, 2}}}));
    EXPECT_EQ(response.events.size(), 2U);
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getFastAlarms([{eventName: link, isActive: true, numberOfTimesEventHasBeenActive: 3, radioChannelId: 1\n}, {eventName: rx, isActive: false, numberOfTimesEventHasBeenActive: 0, radioChannelId: 2\n}])
result 0x0 0 ""
prints Events:\neventName: link, isActive: true, numberOfTimesEventHasBeenActive: 3, radioChannelId: 1\neventName: rx, isActive: false, numberOfTimesEventHasBeenActive: 0, radioChannelId: 2\n
)");
}

TEST_F(CiGetFastEventsTest, NewStateReplacesTheView)
{
    enrol<CiGetFastEventsImpl>();
    alarmHandler.onGetFastAlarms = {0x7FFF, {{"rx", true, 1, 2}}};
    const CiGetFastEvents::Response response = tell(ciGetFastEvents({{{"link", true, 3, 1}}}));
    ASSERT_EQ(response.events.size(), 1U);
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getFastAlarms([{eventName: link, isActive: true, numberOfTimesEventHasBeenActive: 3, radioChannelId: 1\n}])
result 0x0 0 ""
prints Events:\neventName: rx, isActive: true, numberOfTimesEventHasBeenActive: 1, radioChannelId: 2\n
)");
}

TEST_F(CiGetFastEventsTest, FrameShowsTheRequestWithALineFeedBehindEachEvent)
{
    enrol<CiGetFastEventsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CiGetFastEvents", 7);
    ciGetFastEvents({{{"a", true, 1, 1}, {"b", false, 2, 2}}});
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CI.GetFastEvents Request: Events: eventName: a, isActive: true, numberOfTimesEventHasBeenActive: 1, radioChannelId: 1\n\neventName: b, isActive: false, numberOfTimesEventHasBeenActive: 2, radioChannelId: 2\n\n
6 ZYR.TI.CiGetFastEvents:
IAlarmHandlerTopApi.getFastAlarms([{eventName: a, isActive: true, numberOfTimesEventHasBeenActive: 1, radioChannelId: 1\n}, {eventName: b, isActive: false, numberOfTimesEventHasBeenActive: 2, radioChannelId: 2\n}])
5 ZYR.COMM: CI.GetFastEvents Response: Events:\neventName: a, isActive: true, numberOfTimesEventHasBeenActive: 1, radioChannelId: 1\neventName: b, isActive: false, numberOfTimesEventHasBeenActive: 2, radioChannelId: 2\n\n----------------------------------------------------\n
)");
}

TEST_F(CiGetFastEventsTest, ReleasedRequestIsALevel2LineAndATellingFailure)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    alarmHandler.onGetFastAlarms = 0x8015;
    const CiGetFastEvents::Response response = tell(impl.execute({{{"a", true, 1, 1}}}));
    EXPECT_EQ(response.events.size(), 1U);
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getFastAlarms([{eventName: a, isActive: true, numberOfTimesEventHasBeenActive: 1, radioChannelId: 1\n}])
2 ZYR.TI.CiGetFastEvents: CI.GetFastEvents has been terminated
result 0x8000 4 "CI.GetFastEvents has been terminated"
prints Events:\neventName: a, isActive: true, numberOfTimesEventHasBeenActive: 1, radioChannelId: 1\n
)");
}

TEST_F(CiGetFastEventsTest, NeighboursOfTheReleaseCodeAreTrueFailures)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    alarmHandler.onGetFastAlarms.inTurn({0x8014, 0x8016, 0x8000});
    for (int call = 0; call < 3; ++call) {
        transcript.clear();
        tell(impl.execute({}));
        EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getFastAlarms([])
1 ZYR.TI.CiGetFastEvents: CI.GetFastEvents failed to get alarms
result 0x8000 4 "CI.GetFastEvents failed to get alarms"
prints Events:\n
)");
    }
}

TEST_F(CiGetFastEventsTest, ToStringAndPrintAreOneText)
{
    CiGetFastEvents::Response response;
    response.events = {{"a", true, 1, 1}};
    EXPECT_EQ(response.toString(),
              "Events:\neventName: a, isActive: true, numberOfTimesEventHasBeenActive: 1, "
              "radioChannelId: 1\n");
    EXPECT_EQ(response.printResponse(), response.toString());
}

TEST_F(CiGetFastEventsTest, InitialiseIgnoresTheNumberOfChannels)
{
    EXPECT_EQ(impl.initialize(0), 0);
    EXPECT_EQ(impl.initialize(3), 0);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CiGetFastEventsTest, InitialiseFailsWithoutAnAlarmHandler)
{
    withdraw("IAlarmHandlerTopApi");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CiGetFastEvents:  Error getting interface to IAlarmHandlerTopApi
)");
}

} // namespace
} // namespace zyr_top_api
