#include "MimoLockStatus.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view mimoLockStatusToString(MimoLockStatus value)
{
    static constexpr auto texts = std::to_array<std::string_view>({"Locked", "Unlocked", "Mute"});
    return textOf(texts, value, "");
}

} // namespace zyr_top_api
