#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The state that is requested for a transmitter.
enum class TxRequestedStatus : std::uint32_t
{
    Off = 0,
    On = 1,
};

/// The text of a status, "Undefined" for a value without one.
ZYR_EXPORT std::string_view txRequestedStatusToString(TxRequestedStatus value);

} // namespace zyr_top_api
