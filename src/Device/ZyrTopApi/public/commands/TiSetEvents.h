#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "TiSetEventsCommand.h"

namespace zyr_top_api
{

/// Test command: hands a record over to the alarm handler, which alone reads it.
class ZYR_EXPORT TiSetEvents
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.SetEvents",
        .className = "TiSetEvents",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.TiSetEvents",
        .route = Route::Direct,
    };

    using Command = TiSetEventsCommand;

    /// `eTI_E_FAILED` if the alarm handler fails.
    using Response = StandardResponse;

    virtual ~TiSetEvents() = default;
};

} // namespace zyr_top_api
