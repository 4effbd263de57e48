#pragma once

#include "IHardwareConfigurationHandler.h"
#include "SimulatedCollaborator.h"

#include <cstdint>
#include <vector>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kHardwareConfigurationHandlerOperations{
    "IHardwareConfigurationHandler",
    "setRadioFrameId",
    "getFrameUpdateMode",
    "setFrameUpdateMode",
    "isXpicCapable",
    "getConfigType",
    "getPerformanceProfileArray",
    "setRauCarrierAggregation"};

/// The radio frames of the simulated hardware database, and what the node's channels use of them.
class SimulatedHardwareConfigurationHandler final
    : public SimulatedCollaborator<IHardwareConfigurationHandler, kHardwareConfigurationHandlerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    bool isMimoCapable(unsigned radioFrameId) override;

    /// Refuses frames and channels that the node doesn't have.
    EHCHResult setRadioFrameId(zyr_top_api::RadioChannel channel, unsigned radioFrameId, int) override;

    /// True once the channel's own configuration has been completed.
    bool isChannelInUse(zyr_top_api::RadioChannel channel) override;
    EHCHResult getFrameUpdateMode(unsigned& mode) override;
    EHCHResult setFrameUpdateMode(unsigned mode) override;

    /// True for frames of the types Xpic and Mrcx; an unknown frame is a failure.
    EHCHResult isXpicCapable(unsigned radioFrameId, bool& capable) override;
    EHCHResult getConfigType(zyr_top_api::RadioChannel channel, unsigned radioFrameId,
                             zyr_top_api::FFConfigType& type) override;
    std::vector<zyr_top_api::RadioFrameRecord> getRadioFrames(bool onlyReleased) override;

    /// One number for each modulation of the frame, in its order: the PHY mode if the radio type can serve
    /// it, else -1.
    zyr_top_api::ETIResult getPerformanceProfileArray(unsigned radioChannel, unsigned radioFrameId,
                                                      std::vector<std::int16_t>& profile) override;

    /// Refuses to switch it on for a radio type that can't.
    EHCHResult setRauCarrierAggregation(bool on) override;
};

} // namespace zyr_simulation
