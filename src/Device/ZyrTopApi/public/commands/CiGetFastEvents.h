#pragma once

#include "AlarmEvent.h"
#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <string>
#include <vector>

namespace zyr_top_api
{

/// Long poll of the alarm events: returns when the node's alarms differ from the caller's view of them, or
/// when "CI.ReleaseFastEventsRequests" comes.
class ZYR_EXPORT CiGetFastEvents
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CI.GetFastEvents",
        .className = "CiGetFastEvents",
        .responseLabel = "CiGetFastEvents::Response",
        .traceChannel = "ZYR.TI.CiGetFastEvents",
        .route = Route::DispatchedUnlocked,
    };

    struct ZYR_EXPORT Command
    {
        std::vector<AlarmEvent> events; ///< the caller's present view

        void print(TextWriter& text) const;
    };

    /// `eTI_E_FAILED` if the alarm handler fails, with the text "CI.GetFastEvents has been terminated" if the
    /// request was released.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::vector<AlarmEvent> events; ///< the new state

        std::string printResponse() const override;
        std::string toString() const;
        void print(TextWriter& text) const;
    };

    virtual ~CiGetFastEvents() = default;
};

/// Dispatches "CI.GetFastEvents". From any thread, any number of times at once; blocks without a time-out but
/// holds up no other command.
ZYR_EXPORT CiGetFastEvents::Response ciGetFastEvents(const CiGetFastEvents::Command& command);

} // namespace zyr_top_api
