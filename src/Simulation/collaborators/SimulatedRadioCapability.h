#pragma once

#include "IRadioCapability.h"
#include "SimulatedCollaborator.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kRadioCapabilityOperations{"IRadioCapability"};

/// What the radio unit of a channel can do: its type's row, with the node's duplex type and transmitters.
class SimulatedRadioCapability final
    : public SimulatedCollaborator<IRadioCapability, kRadioCapabilityOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    zyr_top_api::FrequencyCapability getFrequencyCapability() override;
    zyr_top_api::FeatureCapability getFeatureCapability() override;
};

} // namespace zyr_simulation
