#pragma once

#include "AlarmEvent.h"
#include "CollaboratorResults.h"
#include "IInterface.h"
#include "TiSetEventsCommand.h"

#include <cstdint>
#include <vector>

/// The alarm handler of the node, published as "IAlarmHandlerTopApi".
///
/// Must be safe to call from several threads at once: the test commands call it without a lock, and any
/// number of `CiGetFastEvents` requests wait in it at the same time. Results from 0x8000 are failures.
class ZYR_EXPORT IAlarmHandlerTopApi : public IInterface
{
  public:
    /// Gives all alarms and their states. Called by `CiGetEvents`, which keeps what is in `alarms` also on
    /// failure.
    virtual ResultCode getAlarms(std::vector<zyr_top_api::AlarmEvent>& alarms) = 0;

    /// Waits until the states differ from those in `alarms`, then puts the new ones there. Called by
    /// `CiGetFastEvents`; the handler alone bounds the wait.
    /// @return 0x8015 exactly if `releaseFastAlarmRequests` ended the wait, which is told apart from a
    /// failure.
    virtual ResultCode getFastAlarms(std::vector<zyr_top_api::AlarmEvent>& alarms) = 0;

    /// Ends all waits in `getFastAlarms`. Called by `CiReleaseFastEventsRequests`.
    virtual ResultCode releaseFastAlarmRequests() = 0;

    /// Gives the alarms that `option` selects; the numbers are the handler's. Called by `TiGetEvents`.
    virtual ResultCode getAlarmsByOption(std::int32_t option,
                                         std::vector<zyr_top_api::AlarmEvent>& alarms) = 0;

    /// Sets alarms as the request says, which is handed over unread. Called by `TiSetEvents`.
    virtual ResultCode setAlarmEvents(const zyr_top_api::TiSetEventsCommand& command) = 0;
};
