#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <string>

namespace zyr_top_api
{

/// Test command: reads or sets the node's time, in UTC. A node with a hardware clock sets that and the system
/// clock, and reads the hardware clock; another has the system clock alone, which doesn't survive a reboot.
///
/// Setting the time changes the environment of the process: TZ is "UTC" while the time is worked out. It gets
/// its text back if it had one; if it was unset or empty it stays "UTC". Nothing guards that but the command
/// mutex, so threads that read the environment or work out local times at that moment race with it.
class ZYR_EXPORT TiManageRealTimeClock
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManageRealTimeClock",
        .className = "TiManageRealTimeClock",
        .responseLabel = "TiManageRealTimeClock::Response",
        .traceChannel = "ZYR.TI.TiManageRealTimeClock",
        .route = Route::Gated,
    };

    struct ZYR_EXPORT Command
    {
        /// The time to set, as in "20260114T08:30:05"; empty to read only. The lengths of months aren't
        /// checked: the system clock takes 31 February as 3 March, the hardware clock may refuse it.
        std::string dateTime;

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a time in another form or with a field out of its range; `eTI_E_FAILED`
    /// if a clock can't be set or read. The hardware clock is set first and stays so if the system clock
    /// then can't be set.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::string dateTime; ///< the time read, in the same form; empty after a failure

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiManageRealTimeClock() = default;
};

/// Dispatches "TI.ManageRealTimeClock", unless the test gate is closed. From any thread; waits for other
/// commands. About TZ see the class.
ZYR_EXPORT TiManageRealTimeClock::Response
tiManageRealTimeClock(const TiManageRealTimeClock::Command& command);

} // namespace zyr_top_api
