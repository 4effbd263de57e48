#include "AlarmHandlerTopApiDouble.h"
#include "CommandTest.h"
#include "TiSetEventsImpl.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class TiSetEventsTest : public zyr_test::CommandTest
{
  protected:
    TiSetEventsTest()
    {
        publish(alarmHandler);
        EXPECT_EQ(impl.initialize(2), eTI_S_OK);
        transcript.clear();
    }

    zyr_test::AlarmHandlerTopApiDouble alarmHandler{transcript, "IAlarmHandlerTopApi"};
    TiSetEventsImpl impl;
};

TEST_F(TiSetEventsTest, RecordIsHandedOverWhole)
{
    const TiSetEvents::Command command;
    tell(impl.execute(command));
    EXPECT_EQ(alarmHandler.requestOfSetAlarmEvents, &command);
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.setAlarmEvents()
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(TiSetEventsTest, FailureSpeaksOfGettingInTheLogAndOfSettingInTheResponse)
{
    alarmHandler.onSetAlarmEvents = 0x8000;
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.setAlarmEvents()
1 ZYR.TI.TiSetEvents: TI.SetEvents failed to get alarms
result 0x8000 4 "TI.SetEvents failed to set alarm events"
prints StandardResponse Sent\n
)");
}

TEST_F(TiSetEventsTest, HandlersGreatestSuccessComesOutAsPlainSuccess)
{
    alarmHandler.onSetAlarmEvents = 0x7FFF;
    EXPECT_EQ(outcome(impl.execute({})), R"(result 0x0 0 "")");
}

TEST_F(TiSetEventsTest, EntryIsTracedWithoutText)
{
    setTraceLevel("ZYR.TI.TiSetEvents", 7);
    impl.execute({});
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiSetEvents:
IAlarmHandlerTopApi.setAlarmEvents()
)");
}

TEST_F(TiSetEventsTest, InitialiseIgnoresTheNumberOfChannels)
{
    EXPECT_EQ(impl.initialize(0), 0);
    EXPECT_EQ(impl.initialize(3), 0);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiSetEventsTest, InitialiseFailsWithoutAnAlarmHandler)
{
    withdraw("IAlarmHandlerTopApi");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.TiSetEvents:  Error getting interface to IAlarmHandlerTopApi
)");
}

} // namespace
} // namespace zyr_top_api
