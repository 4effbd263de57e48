#include "SimulatedRssiHandler.h"

#include "Hop.h"
#include "ModulationLadder.h"

namespace zyr_simulation
{

using zyr_top_api::ETIResult;

ERSSIResult SimulatedRssiHandler::calculateRssiThreshold(unsigned phyMode, int& threshold)
{
    return perform<ERSSIResult>("calculateRssiThreshold", [&] {
        if (phyMode >= modulationLadder().size()) {
            return eRSSI_E_FAILED;
        }
        threshold = noiseFloor_dBmTenths(channel()) + modulationLadder()[phyMode].requiredSnir_dBTenths;
        return eRSSI_S_OK;
    });
}

ERSSIResult SimulatedRssiHandler::setRssiThreshold(int threshold)
{
    return perform<ERSSIResult>("setRssiThreshold", [&] { channel().receiver.threshold = threshold; });
}

ETIResult SimulatedRssiHandler::getRssi(int& value)
{
    return ask<ETIResult>("getRssi", [&] { value = channel().receiver.level; });
}

std::int32_t SimulatedRssiHandler::getRssiMin(bool reset)
{
    const auto get = [&] {
        auto& receiver = channel().receiver;
        const auto lowest = receiver.lowestLevel.value_or(kNoLevel_dBmTenths);
        if (reset) {
            receiver.lowestLevel.reset();
        }
        return lowest;
    };
    return reset ? locked(get) : read(get);
}

} // namespace zyr_simulation
