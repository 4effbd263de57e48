#include "FrequencyCapability.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view duplexTypeToString(std::uint32_t duplexType)
{
    static constexpr auto texts = std::to_array<std::string_view>({"Variable", "Fixed"});
    return textOf(texts, duplexType, "UNDEFINED");
}

} // namespace zyr_top_api
