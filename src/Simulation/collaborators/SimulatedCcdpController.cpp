#include "SimulatedCcdpController.h"

#include "DualStream.h"
#include "MimoLockStatus.h"
#include "Processes.h"

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::LinkType;
using zyr_top_api::MimoLockStatus;
using zyr_top_api::XpicMimoPreamble;
using zyr_top_api::XpicStatusStruct;

ETIResult SimulatedCcdpController::setBar(bool on)
{
    return perform<ETIResult>("setBar", [&] { xpic().isBarred = on; });
}

unsigned SimulatedCcdpController::getBar() const
{
    return read([&] { return xpic().isBarred ? 1U : 0U; });
}

ETIResult SimulatedCcdpController::forceXpic(LinkType linkType)
{
    return perform<ETIResult>("forceXpic", [&] { xpic().linkType = linkType; });
}

ETIResult SimulatedCcdpController::xpicMute(bool mute)
{
    return perform<ETIResult>("xpicMute", [&] { xpic().isMuted = mute; });
}

ETIResult SimulatedCcdpController::getLinkType(LinkType& linkType) const
{
    return ask<ETIResult>("getLinkType", [&] { linkType = xpic().linkType; });
}

ETIResult SimulatedCcdpController::setPreamble(XpicMimoPreamble preamble)
{
    return perform<ETIResult>("setPreamble", [&] { xpic().preamble = preamble; });
}

ETIResult SimulatedCcdpController::getPreamble(XpicMimoPreamble& preamble)
{
    return ask<ETIResult>("getPreamble", [&] { preamble = xpic().preamble; });
}

ETIResult SimulatedCcdpController::xpicAcquireStart(zyr_top_api::XpicAcquireMode /*mode*/,
                                                    zyr_top_api::XpicSpectralInversionMode /*inversion*/)
{
    return perform<ETIResult>("xpicAcquireStart",
                              [&] { xpic().sweepsUntil = node().settleAfter(kXpicSweepTime); });
}

ETIResult SimulatedCcdpController::getXpicStatusStruct(XpicStatusStruct& status)
{
    return ask<ETIResult>("getXpicStatusStruct", [&] {
        const bool isLocked = xpicLock(node(), channel()) == MimoLockStatus::Locked;
        status.xpdDbTenths = isLocked ? crossPolarDiscrimination_dBTenths(node(), channel()) : 0;
        status.slaveCarrierOffsetHz = isLocked ? carrierOffset_Hz(node(), channel()) : 0;
        status.slaveSweepInProgress = slaveSweeps(node(), channel()) ? 1 : 0;
        status.calibStatus = isLocked ? 1 : 0;
    });
}

ETIResult SimulatedCcdpController::start(LinkType linkType)
{
    return perform<ETIResult>("start", [&] {
        if (!xpic().isBarred) {
            xpic().linkType = linkType;
        }
    });
}

ETIResult SimulatedCcdpController::stop()
{
    return perform<ETIResult>("stop", [&] {
        if (!xpic().isBarred) {
            xpic().linkType = LinkType::Disable;
        }
    });
}

bool SimulatedCcdpController::isStarted()
{
    return read([&] { return xpic().isStarted(); });
}

ETIResult SimulatedCcdpController::getXpi(int& xpi)
{
    return ask<ETIResult>("getXpi", [&] {
        const bool isLocked = xpicLock(node(), channel()) == MimoLockStatus::Locked;
        xpi = isLocked ? crossPolarDiscrimination_dBTenths(node(), channel()) : 0;
    });
}

ETIResult SimulatedCcdpController::getState(std::string& state)
{
    return perform<ETIResult>(
        "getState", [&] { state = zyr_top_api::mimoLockStatusToString(xpicLock(node(), channel())); });
}

} // namespace zyr_simulation
