#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// How a restart of a radio unit stands.
enum class RadioRestartStatus : std::uint32_t
{
    Idle = 1,
    Restarting = 2,
    RestartSuccessful = 3,
    RestartFailed = 4,
};

/// The text of a status, "Invalid" for a value without one, 0 among them.
ZYR_EXPORT std::string_view radioRestartStatusToString(RadioRestartStatus value);

} // namespace zyr_top_api
