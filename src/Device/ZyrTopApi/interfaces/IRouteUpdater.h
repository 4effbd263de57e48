#pragma once

#include "ETIResult.h"
#include "IInterface.h"
#include "RouteType.h"

#include <cstdint>
#include <map>

/// The routes between radio channels and ports, published as "IRouteUpdater".
class ZYR_EXPORT IRouteUpdater : public IInterface
{
  public:
    /// Changes routes from channel to destination; types without a meaning come too. Called by
    /// `CriSetRouting` with one entry; the result is ignored.
    virtual zyr_top_api::ETIResult updateRoute(std::map<std::uint32_t, std::uint32_t> routes,
                                               zyr_top_api::RouteType routeType) = 0;
};
