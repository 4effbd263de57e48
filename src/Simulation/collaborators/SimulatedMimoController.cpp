#include "SimulatedMimoController.h"

#include "DualStream.h"
#include "Mimo.h"

namespace zyr_simulation
{

using general_classes::Optional;
using zyr_top_api::ETIResult;
using zyr_top_api::LinkType;
using zyr_top_api::MimoLockStatus;

ETIResult SimulatedMimoController::setLinkType(LinkType linkType)
{
    return perform<ETIResult>("setLinkType", [&] { channel().mimo.linkType = linkType; });
}

bool SimulatedMimoController::isStarted()
{
    return read([&] { return channel().mimo.isStarted(); });
}

ETIResult SimulatedMimoController::stop()
{
    return perform<ETIResult>("stop", [&] { channel().mimo.linkType = LinkType::Disable; });
}

Optional<std::int32_t> SimulatedMimoController::getEta()
{
    return read([&] {
        const bool isLocked = channel().mimo.lock == MimoLockStatus::Locked;
        return isLocked ? Optional(eta_tenThousandths(node(), channel())) : Optional<std::int32_t>();
    });
}

MimoLockStatus SimulatedMimoController::getStatus()
{
    return read([&] { return channel().mimo.lock; });
}

Optional<std::int32_t> SimulatedMimoController::getXpi()
{
    return read([&] {
        const bool isLocked = channel().mimo.lock == MimoLockStatus::Locked;
        return isLocked ? Optional(crossPolarDiscrimination_dBTenths(node(), channel()))
                        : Optional<std::int32_t>();
    });
}

Optional<MimoLockStatus> SimulatedMimoController::getXpicStatus()
{
    return read([&] {
        constexpr int fourByFour = 9;
        return mimoMode(node(), channel()) == fourByFour ? Optional(xpicLock(node(), channel()))
                                                         : Optional<MimoLockStatus>();
    });
}

ETIResult SimulatedMimoController::mimoSpatialMute(bool mute)
{
    return perform<ETIResult>("mimoSpatialMute", [&] { channel().mimo.isSpatialMuted = mute; });
}

} // namespace zyr_simulation
