#pragma once

#include "IMimoController.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kMimoControllerOperations{"IMimoController", "setLinkType", "stop",
                                                                  "mimoSpatialMute"};

/// MIMO of a channel. It is started while its link type isn't "Disable".
class SimulatedMimoController final : public SimulatedCollaborator<IMimoController, kMimoControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    zyr_top_api::ETIResult setLinkType(zyr_top_api::LinkType linkType) override;
    bool isStarted() override;
    zyr_top_api::ETIResult stop() override;

    /// In ten-thousandths; nothing while the receiver hasn't locked.
    general_classes::Optional<std::int32_t> getEta() override;
    zyr_top_api::MimoLockStatus getStatus() override;

    /// In tenths of a dB; nothing while the receiver hasn't locked.
    general_classes::Optional<std::int32_t> getXpi() override;

    /// Nothing but on a 4x4 link.
    general_classes::Optional<zyr_top_api::MimoLockStatus> getXpicStatus() override;
    zyr_top_api::ETIResult mimoSpatialMute(bool mute) override;
};

} // namespace zyr_simulation
