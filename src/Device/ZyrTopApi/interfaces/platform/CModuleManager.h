#pragma once

#include "Export.h"

#include <cstdint>

/// Runs the phases that modules registered for a phase group, for one channel.
/// @return below 0x8000 if all phases succeeded, else the code of the first phase that failed
extern "C" ZYR_EXPORT std::uint32_t CModuleManager_RunGroup(std::uint32_t group, std::uint32_t channel);
