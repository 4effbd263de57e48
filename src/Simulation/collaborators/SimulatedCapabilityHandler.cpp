#include "SimulatedCapabilityHandler.h"

#include "ModulationLadder.h"
#include "RadioType.h"

#include <algorithm>

namespace zyr_simulation
{

using zyr_top_api::ModulationAndCoding;

bool SimulatedCapabilityHandler::isLonghaul()
{
    return read([&] { return node().settings.longHaul; });
}

bool SimulatedCapabilityHandler::isTapsCapable() const
{
    return true;
}

bool SimulatedCapabilityHandler::isMaxAcmLimitedByHw() const
{
    return read([&] {
        return radioType(node().settings.radioType).greatestInWideFrames != ModulationAndCoding::UNDEFINED;
    });
}

ModulationAndCoding
SimulatedCapabilityHandler::getMaxAcmLimitedByHw(const std::vector<std::int16_t>& profile) const
{
    const auto greatest = std::ranges::max_element(profile);
    const auto& ladder = modulationLadder();
    const bool isServed =
        greatest != profile.end() && *greatest >= 0 && static_cast<std::size_t>(*greatest) < ladder.size();
    return isServed ? ladder[static_cast<std::size_t>(*greatest)].modulation
                    : ModulationAndCoding::HALF_BPSK_STRONG;
}

} // namespace zyr_simulation
