#pragma once

#include <cstddef>

namespace zyr_gateway
{

// Memory that is overwritten before it is given back, since secrets have passed through it. Best effort: it
// reaches neither what is still held nor what a call leaves on its stack.

/// As `free`, but overwrites the memory first.
void wipingFree(void* memory) noexcept;

/// As `realloc`, but overwrites memory that it gives back.
void* wipingRealloc(void* memory, std::size_t size) noexcept;

} // namespace zyr_gateway
