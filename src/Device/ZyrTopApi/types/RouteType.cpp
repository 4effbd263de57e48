#include "RouteType.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view routeTypeToString(RouteType value)
{
    static constexpr auto texts = std::to_array<std::string_view>({"RcchToPhyRccMap", "RcchToRfPortMap"});
    return textOf(texts, value, "UndefinedRoute", 1);
}

} // namespace zyr_top_api
