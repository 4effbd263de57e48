#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// How far a channel of the DSP has been configured.
enum class EDspChannelState : std::uint32_t
{
    Blocked = 0,
    Configured = 1,
    AcmConfigured = 2,
    IncompleteConfiguration = 3,
};

/// The text of a state, "invalid" for a value without one.
ZYR_EXPORT std::string_view dspChannelStateToString(EDspChannelState value);

} // namespace zyr_top_api
