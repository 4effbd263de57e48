#include "AlarmHandlerTopApiDouble.h"
#include "CiReleaseFastEventsRequestsImpl.h"
#include "CommandTest.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CiReleaseFastEventsRequestsTest : public zyr_test::CommandTest
{
  protected:
    CiReleaseFastEventsRequestsTest()
    {
        publish(alarmHandler);
        transcript.clear();
    }

    zyr_test::AlarmHandlerTopApiDouble alarmHandler{transcript, "IAlarmHandlerTopApi"};
    CiReleaseFastEventsRequestsImpl impl;
};

TEST_F(CiReleaseFastEventsRequestsTest, ReleaseReachesTheHandler)
{
    enrol<CiReleaseFastEventsRequestsImpl>();
    tell(ciReleaseFastEventsRequests({}));
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.releaseFastAlarmRequests()
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CiReleaseFastEventsRequestsTest, FrameShowsRequestAndResponseAtLevel5)
{
    enrol<CiReleaseFastEventsRequestsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CiReleaseFastEventsRequests", 7);
    ciReleaseFastEventsRequests({});
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CI.ReleaseFastEventsRequests Request:  Received\n
6 ZYR.TI.CiReleaseFastEventsRequests:
IAlarmHandlerTopApi.releaseFastAlarmRequests()
5 ZYR.COMM: CI.ReleaseFastEventsRequests Response: StandardResponse Sent\n\n----------------------------------------------------\n
)");
}

TEST_F(CiReleaseFastEventsRequestsTest, HandlersFailureIsToldInOneText)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    alarmHandler.onReleaseFastAlarmRequests = 0x8000;
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.releaseFastAlarmRequests()
1 ZYR.TI.CiReleaseFastEventsRequests: CI.ReleaseFastEventsRequestsImpl failed to release hanging GetFastAlarm requests
result 0x8000 4 "CI.ReleaseFastEventsRequestsImpl failed to release hanging GetFastAlarm requests"
prints StandardResponse Sent\n
)");
}

TEST_F(CiReleaseFastEventsRequestsTest, HandlersGreatestSuccessComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    alarmHandler.onReleaseFastAlarmRequests = 0x7FFF;
    EXPECT_EQ(outcome(impl.execute({})), R"(result 0x0 0 "")");
}

TEST_F(CiReleaseFastEventsRequestsTest, InitialiseIgnoresTheNumberOfChannels)
{
    EXPECT_EQ(impl.initialize(0), 0);
    EXPECT_EQ(impl.initialize(3), 0);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CiReleaseFastEventsRequestsTest, InitialiseFailsWithoutAnAlarmHandler)
{
    withdraw("IAlarmHandlerTopApi");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CiReleaseFastEventsRequests:  Error getting interface to IAlarmHandlerTopApi
)");
}

} // namespace
} // namespace zyr_top_api
