#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// Whether the DSP's PPF has locked.
enum class PpfLockedStatus : std::uint32_t
{
    notSupported = 0,
    locked = 1,
    unlocked = 2,
};

/// The text of a status, "notSupported" for a value without one.
ZYR_EXPORT std::string_view ppfLockedStatusToString(PpfLockedStatus value);

} // namespace zyr_top_api
