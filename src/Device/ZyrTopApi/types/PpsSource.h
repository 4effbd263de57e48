#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// Where the pulse per second comes from.
enum class PpsSource : std::uint32_t
{
    Internal = 0,
    External = 1,
    PeerSC = 2,
    External2 = 3,
};

/// The text of a source, "Unknown" for a value without one.
ZYR_EXPORT std::string_view ppsSourceToString(PpsSource value);

} // namespace zyr_top_api
