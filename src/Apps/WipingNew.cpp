// The programs overwrite what they give back of the heap: keys and passwords pass through texts, values and
// documents that are copied and moved on their way, and no copy shall outlive its use. Best effort: what is
// still held, such as a connection's buffer, and what stays on a stack isn't reached.

#include "WipingMemory.h"

#include <cstdlib>
#include <new>

// The forms for arrays, and those that don't throw, come back to these.

void* operator new(std::size_t size)
{
    for (;;) {
        if (void* const memory = std::malloc(size != 0 ? size : 1)) {
            return memory;
        }
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr) {
            throw std::bad_alloc();
        }
        handler();
    }
}

void operator delete(void* memory) noexcept
{
    zyr_gateway::wipingFree(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    zyr_gateway::wipingFree(memory);
}
