#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "LoopStatePair.h"

#include <string>
#include <vector>

namespace zyr_top_api
{

/// Closes and opens test loops of the node, and tells the state of all of them.
class ZYR_EXPORT CiManageLoops
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CI.ManageLoops",
        .className = "CiManageLoops",
        .responseLabel = "CiManageLoops::Response",
        .traceChannel = "ZYR.TI.CiManageLoops",
    };

    struct ZYR_EXPORT Command
    {
        /// The loops to set, in this order. Without any the command only reads.
        std::vector<LoopStatePair> loops;

        void print(TextWriter& text) const;
    };

    /// `eTI_E_PARAMETER_INVALID` for a loop that doesn't exist; `eTI_E_FAILED` if the loop controller fails.
    /// Loops that were set before stay set, and `loops` is empty.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::vector<LoopStatePair> loops; ///< all loops of the node, as they are behind the command

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CiManageLoops() = default;
};

/// Dispatches "CI.ManageLoops". From any thread; waits for other commands.
ZYR_EXPORT CiManageLoops::Response ciManageLoops(const CiManageLoops::Command& command);

} // namespace zyr_top_api
