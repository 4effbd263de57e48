#pragma once

#include "IRssiHandler.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kRssiHandlerOperations{"IRssiHandler", "calculateRssiThreshold",
                                                               "setRssiThreshold", "getRssi"};

/// The received level of a channel, in tenths of a dBm.
class SimulatedRssiHandler final : public SimulatedCollaborator<IRssiHandler, kRssiHandlerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// The level at which the modulation's SNIR is there with the channel's frame. Refuses what is no PHY
    /// mode.
    ERSSIResult calculateRssiThreshold(unsigned phyMode, int& threshold) override;
    ERSSIResult setRssiThreshold(int threshold) override;

    /// -990 when there is nothing to receive.
    zyr_top_api::ETIResult getRssi(int& value) override;

    /// -990 if nothing has been received since the last reset.
    std::int32_t getRssiMin(bool reset) override;
};

} // namespace zyr_simulation
