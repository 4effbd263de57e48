#include "SimulatedRouteUpdater.h"

namespace zyr_simulation
{

zyr_top_api::ETIResult SimulatedRouteUpdater::updateRoute(std::map<std::uint32_t, std::uint32_t> routes,
                                                          zyr_top_api::RouteType routeType)
{
    return perform<zyr_top_api::ETIResult>("updateRoute", [&] {
        for (const auto& [channel, destination] : routes) {
            node().routes[{routeType, channel}] = destination;
        }
    });
}

} // namespace zyr_simulation
