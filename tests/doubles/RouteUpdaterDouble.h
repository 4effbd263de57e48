#pragma once

#include "Answer.h"
#include "IRouteUpdater.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IRouteUpdater`.
class RouteUpdaterDouble : public IRouteUpdater, public Recorder
{
  public:
    RouteUpdaterDouble(Transcript& transcript, std::string name);
    ~RouteUpdaterDouble() override;
    RouteUpdaterDouble(const RouteUpdaterDouble&) = delete;
    RouteUpdaterDouble& operator=(const RouteUpdaterDouble&) = delete;

    zyr_top_api::ETIResult updateRoute(std::map<std::uint32_t, std::uint32_t> routes,
                                       zyr_top_api::RouteType routeType) override
    {
        record("updateRoute", routes, routeType);
        return onUpdateRoute.next();
    }

    Answer<zyr_top_api::ETIResult> onUpdateRoute;
};

} // namespace zyr_test
