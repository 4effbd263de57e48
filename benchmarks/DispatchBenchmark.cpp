// Times of the dispatch beside the least that a command can take, from one thread and from several, also
// while long polls hang. To be read as ratios within one run; table.py does that.

#include "DispatchTable.h"
#include "HangingPolls.h"
#include "HashDispatch.h"
#include "Least.h"
#include "TraceService.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <string>

namespace
{

using namespace zyr_top_api;

constexpr std::size_t kLongPolls = 64;
constexpr std::size_t kMiddle = benchmark_table::kBarLength / 2;

benchmark_table::QuietAcmHandler handler;
benchmark_table::Least least(handler);
std::optional<benchmark_table::HangingPolls> polls;
std::optional<benchmark_hash::Dispatcher> hashDispatcher;

CriEnableAcm::Command enabling()
{
    CriEnableAcm::Command command;
    command.enable = true;
    return command;
}

// What stands before each benchmark, once for all of its threads.

void fillTable(const benchmark::State& state)
{
    zyr_platform::TraceService::get().setLevelForAll(2);
    benchmark_table::fill(static_cast<std::size_t>(state.range(0)), benchmark_table::kBarLength, handler);
}

void letPollsHang(const benchmark::State& state)
{
    fillTable(state);
    polls.emplace(kLongPolls);
}

void releasePolls(const benchmark::State& /*state*/)
{
    polls.reset();
}

void fillHashMap(const benchmark::State& state)
{
    fillTable(state);
    hashDispatcher.emplace();
    for (const std::string& name : benchmark_table::otherNames()) {
        hashDispatcher->add(name, std::make_shared<CriEnableAcmImpl>());
    }
    const auto impl = std::make_shared<CriEnableAcmImpl>();
    impl->initialize(1);
    hashDispatcher->add("CRI.EnableAcm", impl);
}

void leastOf(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(least.call(true));
    }
}
BENCHMARK(leastOf)->Name("least")->ThreadRange(1, 4)->UseRealTime();

void dispatch(benchmark::State& state)
{
    const CriEnableAcm::Command command = enabling();
    for (auto _ : state) {
        benchmark::DoNotOptimize(criEnableAcm(command));
    }
}
BENCHMARK(dispatch)->Name("first")->Arg(0)->Setup(fillTable)->UseRealTime();
BENCHMARK(dispatch)->Name("middle")->Arg(kMiddle)->Setup(fillTable)->ThreadRange(1, 4)->UseRealTime();
BENCHMARK(dispatch)->Name("last")->Arg(benchmark_table::kBarLength - 1)->Setup(fillTable)->UseRealTime();
BENCHMARK(dispatch)
    ->Name("polls")
    ->Arg(kMiddle)
    ->Setup(letPollsHang)
    ->Teardown(releasePolls)
    ->ThreadRange(1, 4)
    ->UseRealTime();

void hashed(benchmark::State& state)
{
    const std::string name = "CRI.EnableAcm";
    const CriEnableAcm::Command command = enabling();
    for (auto _ : state) {
        benchmark::DoNotOptimize(hashDispatcher->call<CriEnableAcmImpl>(name, command));
    }
}
BENCHMARK(hashed)->Name("hash")->Arg(kMiddle)->Setup(fillHashMap)->ThreadRange(1, 4)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
