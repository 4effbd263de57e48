#include "PpsOutputMode.h"

#include "EnumText.h"

#include <ostream>

namespace zyr_top_api
{

std::string_view ppsOutputModeToString(PpsOutputMode value)
{
    static constexpr auto texts = std::to_array<std::string_view>({"Off", "On", "Auto"});
    return textOf(texts, value, "Unknown");
}

std::ostream& operator<<(std::ostream& stream, PpsOutputMode value)
{
    return stream << ppsOutputModeToString(value);
}

} // namespace zyr_top_api
