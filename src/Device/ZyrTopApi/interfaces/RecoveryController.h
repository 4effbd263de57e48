#pragma once

#include "ETIResult.h"
#include "Export.h"
#include "Recover.h"

namespace nord::zyr::services::recovery
{

/// Recovery of the node's services, published as "RecoveryController".
///
/// It has no common root with the other collaborators. What is published must derive from `IInterface` too,
/// and is found by a cast across.
class ZYR_EXPORT RecoveryController
{
  public:
    virtual ~RecoveryController() = default;

    /// Restarts the DSP. Called by `CriSetRadioChannelNearEnd`,
    /// `CriStartRecovery` and `CriManagePathLatency`; results from 0x8000 are failures.
    virtual zyr_top_api::ETIResult startDspRecovery(zyr_top_api::Recover recover) = 0;
};

} // namespace nord::zyr::services::recovery
