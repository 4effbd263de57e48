#pragma once

#include "Export.h"

#include <cstdint>

/// Handle of a named hardware driver. All words null: no driver.
struct CDriverHandle
{
    void* context = nullptr; ///< first argument of the operations
    std::uint32_t (*write)(void* context, std::uint32_t value) = nullptr;
    void* reserved = nullptr;
    std::uint32_t (*read)(void* context, std::uint32_t* value) = nullptr;
};

/// Fills the handle of a hardware driver, by its name.
/// @return below 0x8000 if the driver exists; otherwise the handle's content is undefined
extern "C" ZYR_EXPORT std::uint32_t CDriver_GetInterface(CDriverHandle* handle, const char* name);
