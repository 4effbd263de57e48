#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

namespace zyr_top_api
{

/// Switches carrier aggregation of the radio unit on or off. The one setting applies to the node.
class ZYR_EXPORT CriSetRauCarrierAggregation
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetRauCarrierAggregation",
        .className = "CriSetRauCarrierAggregation",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetRauCarrierAggregation",
    };

    struct ZYR_EXPORT Command
    {
        bool IsRauCarrierAggregation = false; ///< true switches it on, false off

        void print(TextWriter& text) const;
    };

    /// Success whatever the hardware configuration handler answers.
    using Response = StandardResponse;

    virtual ~CriSetRauCarrierAggregation() = default;
};

/// Dispatches "CRI.SetRauCarrierAggregation". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetRauCarrierAggregation(const CriSetRauCarrierAggregation::Command& command);

} // namespace zyr_top_api
