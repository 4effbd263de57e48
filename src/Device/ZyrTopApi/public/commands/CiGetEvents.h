#pragma once

#include "AlarmEvent.h"
#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <vector>

namespace zyr_top_api
{

/// Reads the alarm events of the node.
class ZYR_EXPORT CiGetEvents
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CI.GetEvents",
        .className = "CiGetEvents",
        .responseLabel = "CiGetEvents::Response",
        .traceChannel = "ZYR.TI.CiGetEvents",
    };

    struct ZYR_EXPORT Command
    {
        void print(TextWriter& text) const;
    };

    /// `eTI_E_FAILED` if the alarm handler fails; events that it had already given stay.
    /// Prints as "Sent\n" always: the events are not traced.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::vector<AlarmEvent> events;
    };

    virtual ~CiGetEvents() = default;
};

/// Dispatches "CI.GetEvents". From any thread; waits for other commands.
ZYR_EXPORT CiGetEvents::Response ciGetEvents(const CiGetEvents::Command& command);

} // namespace zyr_top_api
