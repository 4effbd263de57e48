#include "AcmMode.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view acmModeToString(AcmMode value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"Active", "Passive", "Basic", "Undefined"});
    return textOf(texts, value, "Undefined");
}

std::string_view acmModePositionToString(AcmModePosition value)
{
    static constexpr auto texts = std::to_array<std::string_view>({"Internal", "External", "Undefined"});
    return textOf(texts, value, "Undefined");
}

std::string_view acmRlpControlToString(AcmRlpControl value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"Normal", "ActiveTx", "StandbyTx", "Undefined"});
    return textOf(texts, value, "");
}

} // namespace zyr_top_api
