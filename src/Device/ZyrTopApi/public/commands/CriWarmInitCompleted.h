#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

namespace zyr_top_api
{

/// Ends the start-up of the node: the management application tells that the restart is over. After a warm
/// restart, power control and ACM of each configured channel take over first what the hardware does.
class ZYR_EXPORT CriWarmInitCompleted
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.WarmInitCompleted",
        .className = "CriWarmInitCompleted",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriWarmInitCompleted",
    };

    struct ZYR_EXPORT Command
    {
        void print(TextWriter& text) const;
    };

    /// `eTI_W_WARNING`, without a text, if the node is in normal operation already.
    using Response = StandardResponse;

    virtual ~CriWarmInitCompleted() = default;
};

/// Dispatches "CRI.WarmInitCompleted". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criWarmInitCompleted(const CriWarmInitCompleted::Command& command);

} // namespace zyr_top_api
