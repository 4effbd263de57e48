#pragma once

#include "ICapabilityHandler.h"
#include "SimulatedCollaborator.h"

#include <cstdint>
#include <vector>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kCapabilityHandlerOperations{"ICapabilityHandler"};

/// What the hardware of a channel can do.
class SimulatedCapabilityHandler final
    : public SimulatedCollaborator<ICapabilityHandler, kCapabilityHandlerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    bool isLonghaul() override;
    bool isTapsCapable() const override;

    /// True for a radio type that can't serve all frames whole.
    bool isMaxAcmLimitedByHw() const override;

    /// The greatest modulation in the profile that is served, "HALF_BPSK_STRONG" if none is.
    zyr_top_api::ModulationAndCoding
    getMaxAcmLimitedByHw(const std::vector<std::int16_t>& profile) const override;
};

} // namespace zyr_simulation
