#include "SdcStatus.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view sdcOperStatusToString(SdcStatus value)
{
    static constexpr auto texts = std::to_array<std::string_view>({"disabled", "enabled", "in-progress"});
    return textOf(texts, value, "invalid");
}

std::string_view sdcDadeStatusToString(SdcStatus value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"not-calibrated", "calibrated", "in-progress"});
    return textOf(texts, value, "invalid");
}

} // namespace zyr_top_api
