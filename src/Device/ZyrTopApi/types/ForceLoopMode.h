#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// Whether power control is held in one of its loops.
enum class ForceLoopMode : std::uint32_t
{
    NormalOperation = 0,
    NormalOperationNoHysteresis = 1,
    ClosedLoop = 2,
    OpenLoop = 3,
};

/// The text of a mode, "Undefined" for a value without one.
ZYR_EXPORT std::string_view forceLoopModeToString(ForceLoopMode value);

} // namespace zyr_top_api
