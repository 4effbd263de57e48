#include "AllocationCounter.h"

#include <cstdlib>
#include <new>
#include <string_view>

namespace
{

thread_local bool isCounting = false;
thread_local std::size_t count = 0;

void* allocate(std::size_t size, std::size_t alignment)
{
    if (isCounting) {
        ++count;
    }
    void* const memory = alignment <= alignof(std::max_align_t)
                             ? std::malloc(size == 0 ? 1 : size)
                             : std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

} // namespace

// The replaced operators of the whole process; the array and nothrow forms lead to these.
void* operator new(std::size_t size)
{
    return allocate(size, 1);
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
    std::free(memory);
}

namespace zyr_test
{

AllocationCounter::AllocationCounter()
{
    count = 0;
    isCounting = true;
}

AllocationCounter::~AllocationCounter()
{
    isCounting = false;
}

std::size_t AllocationCounter::allocations() const
{
    return count;
}

bool AllocationCounter::canCount()
{
    const char* const preloaded = std::getenv("LD_PRELOAD");
    return preloaded == nullptr ||
           std::string_view(preloaded).find("/vgpreload_memcheck") == std::string_view::npos;
}

} // namespace zyr_test
