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

    /// Whether anything is counted: valgrind puts functions of its own into the place of those that count.
    static bool canCount();
};

} // namespace zyr_test
