#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// Whether the receiver of a dual-stream link has locked.
enum class MimoLockStatus : std::int32_t
{
    Locked = 0,
    Unlocked = 1,
    Mute = 2,
};

/// The text of a status, empty for a value without one.
ZYR_EXPORT std::string_view mimoLockStatusToString(MimoLockStatus value);

} // namespace zyr_top_api
