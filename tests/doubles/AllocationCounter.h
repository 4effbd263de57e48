#pragma once

#include <cstddef>

namespace zyr_test
{

/// Counts what this thread allocates from the heap, in whatever module, while the object lives.
class AllocationCounter
{
  public:
    AllocationCounter();
    ~AllocationCounter();
    AllocationCounter(const AllocationCounter&) = delete;
    AllocationCounter& operator=(const AllocationCounter&) = delete;

    std::size_t allocations() const;
};

} // namespace zyr_test
