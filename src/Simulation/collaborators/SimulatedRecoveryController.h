#pragma once

#include "IInterface.h"
#include "RecoveryController.h"
#include "SimulatedCollaborator.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kRecoveryControllerOperations{"RecoveryController",
                                                                      "startDspRecovery"};

/// A recovery controller as it is published: the collaborator's interface has no common root.
class PublishedRecoveryController : public IInterface,
                                    public nord::zyr::services::recovery::RecoveryController
{};

/// Restarts the node's DSP.
///
/// The pending frame format type comes into force at once. The restart itself goes on behind the call, for
/// `kDspRecoveryWithoutConfigTime` or `kDspRecoveryTime`; until it is over all links are down and the alarm
/// "DspRecovery" is active. A full restart also begins all counts of received blocks anew.
///
/// A start during a recovery is refused, but for one that the configuration of a channel needs: that begins
/// the restart again. Such a configuration is told by a transmitter that is forced off or an ACM that is
/// muted.
class SimulatedRecoveryController final
    : public SimulatedCollaborator<PublishedRecoveryController, kRecoveryControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// Refuses what is no recovery, and a start during another one.
    zyr_top_api::ETIResult startDspRecovery(zyr_top_api::Recover recover) override;
};

} // namespace zyr_simulation
