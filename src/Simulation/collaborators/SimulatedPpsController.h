#pragma once

#include "IPpsController.h"
#include "SimulatedCollaborator.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kPpsControllerOperations{"IPpsController", "configureRole",
                                                                 "getHopLengthLatency"};

/// The pulse per second of a channel.
class SimulatedPpsController final
    : public SimulatedCollaborator<nord::zyr::pps::IPpsController, kPpsControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    zyr_top_api::ETIResult configureRole(bool ppsSlave, zyr_top_api::PpsOutputMode outputMode) override;

    /// 0 while the link is down.
    zyr_top_api::ETIResult getHopLengthLatency(unsigned& nanoSec) override;
};

} // namespace zyr_simulation
