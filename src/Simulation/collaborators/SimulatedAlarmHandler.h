#pragma once

#include "IAlarmHandlerTopApi.h"
#include "SimulatedCollaborator.h"

#include <vector>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kAlarmHandlerOperations{
    "IAlarmHandlerTopApi",      "getAlarms",         "getFastAlarms",
    "releaseFastAlarmRequests", "getAlarmsByOption", "setAlarmEvents"};

/// The node's alarm handler. All operations may be called from several threads at once.
class SimulatedAlarmHandler final : public SimulatedCollaborator<IAlarmHandlerTopApi, kAlarmHandlerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// All alarms that have ever been raised, by name and then by channel, active or not.
    ResultCode getAlarms(std::vector<zyr_top_api::AlarmEvent>& alarms) override;

    /// Waits until the alarms differ from the view, as sets by name and channel, in flag or count.
    /// @return 0x8015 if the wait was released
    ResultCode getFastAlarms(std::vector<zyr_top_api::AlarmEvent>& alarms) override;
    ResultCode releaseFastAlarmRequests() override;

    /// Option 1 gives the active alarms only, any other option all known ones.
    ResultCode getAlarmsByOption(std::int32_t option, std::vector<zyr_top_api::AlarmEvent>& alarms) override;

    /// Sets the counts of the alarms that aren't active back to 0: the record has nothing to choose by.
    ResultCode setAlarmEvents(const zyr_top_api::TiSetEventsCommand& command) override;

    /// How many calls of `getFastAlarms` hang now.
    unsigned hangingRequests() const;

    /// Releases all calls of `getFastAlarms`; later ones are released at once.
    void shutdown();
};

} // namespace zyr_simulation
