#include "XpicMimoPreamble.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view xpicMimoPreambleToString(XpicMimoPreamble value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"Preamble_A", "Preamble_B", "Preamble_C", "Preamble_D"});
    return textOf(texts, value, "");
}

} // namespace zyr_top_api
