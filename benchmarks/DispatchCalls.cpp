// Makes a number of calls of one kind and ends: what callgrind counts. See table.py.

#include "CommandCalls.h"
#include "CountedKinds.h"
#include "DispatchTable.h"
#include "HashDispatch.h"
#include "Least.h"
#include "TraceService.h"

#include <cstddef>
#include <memory>
#include <string>

namespace
{

using namespace zyr_top_api;

benchmark_table::QuietAcmHandler handler;

// Where the command stands in the table: behind so many others.
constexpr std::size_t kFirst = 0;
constexpr std::size_t kMiddle = benchmark_table::kBarLength / 2;
constexpr std::size_t kLast = benchmark_table::kBarLength - 1;

// Takes records and drops them.
class DroppingSink final : public zyr_platform::TraceSink
{
  public:
    void write(const zyr_platform::TraceRecord& /*record*/) override {}
};

// `CRI.EnableAcm` from its place in the table.
auto dispatchedFrom(std::size_t place)
{
    return [place](long calls) {
        benchmark_table::fill(place, benchmark_table::kBarLength, handler);
        CriEnableAcm::Command command;
        command.enable = true;
        for (long call = 0; call < calls; ++call) {
            criEnableAcm(command);
        }
    };
}

// The same from the middle, with all channels at the level.
auto tracedAt(TylTraceLevel level)
{
    return [level](long calls) {
        zyr_platform::TraceService::get().setLevelForAll(level);
        dispatchedFrom(kMiddle)(calls);
    };
}

auto tracedToSinkAt(TylTraceLevel level)
{
    return [level](long calls) {
        const auto registration = zyr_platform::TraceService::get().addSink(std::make_shared<DroppingSink>());
        tracedAt(level)(calls);
    };
}

// The peer's way, the other names in its table too.
auto hashed(TylTraceLevel level)
{
    return [level](long calls) {
        zyr_platform::TraceService::get().setLevelForAll(level);
        benchmark_table::fill(kMiddle, benchmark_table::kBarLength, handler);
        benchmark_hash::Dispatcher dispatcher;
        for (const std::string& other : benchmark_table::otherNames()) {
            dispatcher.add(other, std::make_shared<CriEnableAcmImpl>());
        }
        const auto impl = std::make_shared<CriEnableAcmImpl>();
        impl->initialize(1);
        const std::string name = "CRI.EnableAcm";
        dispatcher.add(name, impl);
        CriEnableAcm::Command command;
        command.enable = true;
        for (long call = 0; call < calls; ++call) {
            dispatcher.call<CriEnableAcmImpl>(name, command);
        }
    };
}

void least(long calls)
{
    benchmark_table::Least least(handler);
    for (long call = 0; call < calls; ++call) {
        least.call(true);
    }
}

} // namespace

int main(int argc, char** argv)
{
    zyr_platform::TraceService::get().setLevelForAll(2);
    return benchmark_kinds::run(
        {
            {"nothing", [](long) {}},
            {"least", least},
            {"quiet-first", dispatchedFrom(kFirst)},
            {"quiet-middle", dispatchedFrom(kMiddle)},
            {"quiet-last", dispatchedFrom(kLast)},
            {"hash-quiet", hashed(2)},
            {"hash-level-7", hashed(7)},
            {"level-3", tracedAt(3)},
            {"level-5", tracedAt(5)},
            {"level-7", tracedAt(7)},
            {"level-3-sink", tracedToSinkAt(3)},
            {"level-5-sink", tracedToSinkAt(5)},
            {"level-7-sink", tracedToSinkAt(7)},
            {"near-end", benchmark_commands::nearEnd},
            {"rf-power", benchmark_commands::rfPower},
            {"status", benchmark_commands::status},
            {"spectrum", benchmark_commands::spectrumOf500Points},
        },
        argc, argv);
}
