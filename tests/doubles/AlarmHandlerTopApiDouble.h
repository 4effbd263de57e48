#pragma once

#include "Answer.h"
#include "IAlarmHandlerTopApi.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IAlarmHandlerTopApi`.
class AlarmHandlerTopApiDouble : public IAlarmHandlerTopApi, public Recorder
{
  public:
    AlarmHandlerTopApiDouble(Transcript& transcript, std::string name);
    ~AlarmHandlerTopApiDouble() override;
    AlarmHandlerTopApiDouble(const AlarmHandlerTopApiDouble&) = delete;
    AlarmHandlerTopApiDouble& operator=(const AlarmHandlerTopApiDouble&) = delete;

    ResultCode getAlarms(std::vector<zyr_top_api::AlarmEvent>& alarms) override
    {
        record("getAlarms");
        return onGetAlarms.next(alarms);
    }

    ResultCode getFastAlarms(std::vector<zyr_top_api::AlarmEvent>& alarms) override
    {
        record("getFastAlarms", alarms);
        return onGetFastAlarms.next(alarms);
    }

    ResultCode releaseFastAlarmRequests() override
    {
        record("releaseFastAlarmRequests");
        return onReleaseFastAlarmRequests.next();
    }

    ResultCode getAlarmsByOption(std::int32_t option, std::vector<zyr_top_api::AlarmEvent>& alarms) override
    {
        record("getAlarmsByOption", option);
        return onGetAlarmsByOption.next(alarms);
    }

    ResultCode setAlarmEvents(const zyr_top_api::TiSetEventsCommand& command) override
    {
        record("setAlarmEvents");
        requestOfSetAlarmEvents = &command;
        return onSetAlarmEvents.next();
    }

    Answer<ResultCode, std::vector<zyr_top_api::AlarmEvent>> onGetAlarms;
    Answer<ResultCode, std::vector<zyr_top_api::AlarmEvent>> onGetFastAlarms{0U}; // leaves the view
    Answer<ResultCode> onReleaseFastAlarmRequests;
    Answer<ResultCode, std::vector<zyr_top_api::AlarmEvent>> onGetAlarmsByOption;
    Answer<ResultCode> onSetAlarmEvents;

    /// The record that the last call of `setAlarmEvents` got.
    const zyr_top_api::TiSetEventsCommand* requestOfSetAlarmEvents = nullptr;
};

} // namespace zyr_test
