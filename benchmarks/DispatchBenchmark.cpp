// The dispatch of a quiet command beside a bare virtual call and a lock, in one run: look at the ratios.

#include "AllocationReport.h"
#include "DispatchTable.h"
#include "TraceService.h"

#include <benchmark/benchmark.h>

#include <mutex>

namespace
{

using namespace zyr_top_api;
using benchmark_table::AllocationReport;

benchmark_table::QuietAcmHandler handler;
std::mutex mutex;

void bareCollaboratorCall(benchmark::State& state)
{
    IAcmHandler* collaborator = &handler;
    benchmark::DoNotOptimize(collaborator);
    const AllocationReport report(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(collaborator->enableAcm(true));
    }
}
BENCHMARK(bareCollaboratorCall);

void collaboratorCallUnderLock(benchmark::State& state)
{
    IAcmHandler* collaborator = &handler;
    benchmark::DoNotOptimize(collaborator);
    const AllocationReport report(state);
    for (auto _ : state) {
        const std::lock_guard guard(mutex);
        benchmark::DoNotOptimize(collaborator->enableAcm(true));
    }
}
BENCHMARK(collaboratorCallUnderLock);

void dispatch(benchmark::State& state, TylTraceLevel level)
{
    zyr_platform::TraceService::get().setLevelForAll(level);
    benchmark_table::fill(static_cast<std::size_t>(state.range(0)), benchmark_table::kBarLength, handler);
    CriEnableAcm::Command command;
    command.enable = true;
    criEnableAcm(command); // the first traced call makes its thread's buffer
    const AllocationReport report(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(criEnableAcm(command));
    }
}

void quietDispatchFromEntry(benchmark::State& state)
{
    dispatch(state, 2);
}
BENCHMARK(quietDispatchFromEntry)->Arg(0)->Arg(26)->Arg(51);

void dispatchTracedAtLevel3(benchmark::State& state)
{
    dispatch(state, 3);
}
BENCHMARK(dispatchTracedAtLevel3)->Arg(0);

void dispatchTracedAtAllLevels(benchmark::State& state)
{
    dispatch(state, 7);
}
BENCHMARK(dispatchTracedAtAllLevels)->Arg(0);

} // namespace

BENCHMARK_MAIN();
