#pragma once

#include "AlarmEvent.h"
#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zyr_top_api
{

/// Test command: reads the alarm events that an option selects.
class ZYR_EXPORT TiGetEvents
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.GetEvents",
        .className = "TiGetEvents",
        .responseLabel = "TiGetEvents::Response",
        .traceChannel = "ZYR.TI.TiGetEvents",
        .route = Route::Direct,
    };

    struct Command
    {
        std::int32_t requestOption = 0; ///< what the alarm handler reports; its meaning is the handler's
    };

    /// `eTI_E_FAILED` if the alarm handler fails; events that it had already given stay.
    class ZYR_EXPORT Response : public StandardResponse
    {
      public:
        std::vector<AlarmEvent> events;
        std::int32_t requestOption = 0; ///< the command's

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiGetEvents() = default;
};

} // namespace zyr_top_api
