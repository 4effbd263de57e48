#include "WipingMemory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <malloc.h>

namespace zyr_gateway
{

void wipingFree(void* memory) noexcept
{
    if (memory != nullptr) {
        explicit_bzero(memory, malloc_usable_size(memory));
        std::free(memory);
    }
}

void* wipingRealloc(void* memory, std::size_t size) noexcept
{
    void* const fresh = std::malloc(size);
    if (fresh != nullptr && memory != nullptr) {
        std::memcpy(fresh, memory, std::min(size, malloc_usable_size(memory)));
        wipingFree(memory);
    }
    return fresh;
}

} // namespace zyr_gateway
