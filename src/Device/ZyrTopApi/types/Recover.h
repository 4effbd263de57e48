#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// A recovery of the DSP; of two requests the greater is the stronger one.
enum class Recover : std::uint32_t
{
    None = 0,             ///< No recovery is asked for.
    DspWithoutConfig = 1, ///< Restart without a new configuration.
    Dsp = 2,              ///< Full restart.
};

/// The text of a recovery, "Undefined" for `None` and for a value without one.
ZYR_EXPORT std::string_view recoverToString(Recover value);

} // namespace zyr_top_api
