#pragma once

#include "IRouteUpdater.h"
#include "SimulatedCollaborator.h"

#include <cstdint>
#include <map>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kRouteUpdaterOperations{"IRouteUpdater", "updateRoute"};

/// The routes of the node: keeps what it is given.
class SimulatedRouteUpdater final : public SimulatedCollaborator<IRouteUpdater, kRouteUpdaterOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    zyr_top_api::ETIResult updateRoute(std::map<std::uint32_t, std::uint32_t> routes,
                                       zyr_top_api::RouteType routeType) override;
};

} // namespace zyr_simulation
