#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The state of a transmitter as the output power controller reports it.
enum class ETxPowerActualStatus : std::uint32_t
{
    Off = 0,
    On = 1,
    Standby = 2,
};

/// The text of a status, "UNDEFINED" for a value without one.
ZYR_EXPORT std::string_view txPowerActualStatusToString(ETxPowerActualStatus value);

} // namespace zyr_top_api
