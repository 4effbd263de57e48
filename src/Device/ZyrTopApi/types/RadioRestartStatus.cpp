#include "RadioRestartStatus.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view radioRestartStatusToString(RadioRestartStatus value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"Idle", "Restarting", "RestartSuccessful", "RestartFailed"});
    return textOf(texts, value, "Invalid", 1);
}

} // namespace zyr_top_api
