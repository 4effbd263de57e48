#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "Recover.h"

namespace zyr_top_api
{

/// Orders a full recovery of the DSP, which concerns all channels. Blocks until the recovery controller
/// returns.
class ZYR_EXPORT CriStartRecovery
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.StartRecovery",
        .className = "CriStartRecovery",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriStartRecovery",
    };

    struct ZYR_EXPORT Command
    {
        zyr_top_api::Recover Recover = zyr_top_api::Recover::None; ///< only `Dsp` is accepted

        void print(TextWriter& text) const;
    };

    /// `eTI_E_FAILED` for any other recovery than `Dsp`, if the node has no recovery controller, and if the
    /// recovery fails.
    using Response = StandardResponse;

    virtual ~CriStartRecovery() = default;
};

/// Dispatches "CRI.StartRecovery". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criStartRecovery(const CriStartRecovery::Command& command);

} // namespace zyr_top_api
