#include "PpfLockedStatus.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view ppfLockedStatusToString(PpfLockedStatus value)
{
    static constexpr auto texts = std::to_array<std::string_view>({"notSupported", "locked", "unlocked"});
    return textOf(texts, value, "notSupported");
}

} // namespace zyr_top_api
