#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

namespace zyr_top_api
{

/// Releases all hanging "CI.GetFastEvents" requests.
class ZYR_EXPORT CiReleaseFastEventsRequests
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CI.ReleaseFastEventsRequests",
        .className = "CiReleaseFastEventsRequests",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CiReleaseFastEventsRequests",
    };

    struct ZYR_EXPORT Command
    {
        void print(TextWriter& text) const;
    };

    /// `eTI_E_FAILED` if the alarm handler fails.
    using Response = StandardResponse;

    virtual ~CiReleaseFastEventsRequests() = default;
};

/// Dispatches "CI.ReleaseFastEventsRequests". From any thread; waits for other commands, but for no hanging
/// request.
ZYR_EXPORT StandardResponse ciReleaseFastEventsRequests(const CiReleaseFastEventsRequests::Command& command);

} // namespace zyr_top_api
