#pragma once

#include "Export.h"

#include <cstdint>

/// Gives the address of the content of a variable of the hardware storage, by its name. The content stays
/// where it is and may change at any time; commands read it unsynchronised.
/// @param[out] address  where the content stands; unchanged if there is no such variable
/// @return below 0x8000 if the variable exists
extern "C" ZYR_EXPORT std::uint32_t CStorageManager_GetVariableContentAddressByName(const char* name,
                                                                                    void** address);
