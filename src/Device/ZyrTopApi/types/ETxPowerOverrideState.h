#pragma once

#include <cstdint>

namespace zyr_top_api
{

/// What to do with a transmitter regardless of the state that was requested for it.
enum class ETxPowerOverrideState : std::uint32_t
{
    ForcedOff = 0,   ///< Hold it off.
    AsRequested = 1, ///< Give it back to the requested state.
};

} // namespace zyr_top_api
