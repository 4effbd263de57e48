#pragma once

#include "AllocationCounter.h"

#include <benchmark/benchmark.h>

namespace benchmark_table
{

/// Reports the allocations of the timed loop.
class AllocationReport
{
  public:
    explicit AllocationReport(benchmark::State& state) : m_state(state) {}
    ~AllocationReport()
    {
        m_state.counters["allocations"] = benchmark::Counter(static_cast<double>(m_counter.allocations()),
                                                             benchmark::Counter::kAvgIterations);
    }
    AllocationReport(const AllocationReport&) = delete;
    AllocationReport& operator=(const AllocationReport&) = delete;

  private:
    benchmark::State& m_state;
    zyr_test::AllocationCounter m_counter;
};

} // namespace benchmark_table
