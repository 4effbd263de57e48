#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// What a route leads from and to.
enum class RouteType : std::uint32_t
{
    RcchToPhyRccMap = 1,
    RcchToRfPortMap = 2,
};

/// The text of a type, "UndefinedRoute" for a value without one.
ZYR_EXPORT std::string_view routeTypeToString(RouteType value);

} // namespace zyr_top_api
