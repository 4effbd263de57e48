#include "ETxPowerActualStatus.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view txPowerActualStatusToString(ETxPowerActualStatus value)
{
    static constexpr auto texts = std::to_array<std::string_view>({"Off", "On", "Standby"});
    return textOf(texts, value, "UNDEFINED");
}

} // namespace zyr_top_api
