#include "SimulatedPpsController.h"

#include "Hop.h"

namespace zyr_simulation
{

using zyr_top_api::ETIResult;

ETIResult SimulatedPpsController::configureRole(bool ppsSlave, zyr_top_api::PpsOutputMode outputMode)
{
    return perform<ETIResult>("configureRole", [&] {
        auto& pps = channel().pps;
        pps.isConfigured = true;
        pps.isSlave = ppsSlave;
        pps.outputMode = outputMode;
    });
}

ETIResult SimulatedPpsController::getHopLengthLatency(unsigned& nanoSec)
{
    return ask<ETIResult>("getHopLengthLatency",
                          [&] { nanoSec = channel().receiver.isLinkUp ? hopLatency_ns(node()) : 0; });
}

} // namespace zyr_simulation
