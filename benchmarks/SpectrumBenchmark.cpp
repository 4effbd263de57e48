// The reading of a spectrum scan with more and more points: beside what the text of the status takes, the
// whole vector is one allocation, since the points are read into a buffer on the stack.

#include "AllocationReport.h"
#include "CriGetSpectrumDiagnosticsImpl.h"
#include "Publication.h"
#include "TraceService.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>

namespace
{

using namespace zyr_top_api;

// A finished scan with so many points.
class FinishedScan final : public ISpectrumDiagnosticsController
{
  public:
    explicit FinishedScan(int points) : m_points(points) {}

    ETIResult scanControl(unsigned /*mode*/, unsigned /*dmSleep*/) override { return eTI_S_OK; }

    ETIResult getResult(int& count, SpectrumDiagnosticsResult* buffer) override
    {
        count = std::min(count, m_points);
        for (int index = 0; index < count; ++index) {
            buffer[index] = {static_cast<std::uint32_t>(index), -900};
        }
        return eTI_S_OK;
    }

    std::int32_t getStatus() override { return 4; }
    std::int32_t getProgress() override { return 100; }
    SpectrumDiagnosticsProperties getProperties() override { return {}; }

  private:
    int m_points;
};

void spectrumResultOfPoints(benchmark::State& state)
{
    zyr_platform::TraceService::get().setLevelForAll(2);
    FinishedScan scan(static_cast<int>(state.range(0)));
    const zyr_platform::Publication publication("ISpectrumDiagnosticsController_1", scan);
    CriGetSpectrumDiagnosticsImpl impl;
    impl.initialize(1);
    CriGetSpectrumDiagnostics::Command command;
    command.RadioChannelID = 1;
    command.RequestOption = "get-result";
    const auto found = impl.execute(command).Result.size(); // the first call may make its thread's buffer
    if (found != static_cast<std::size_t>(state.range(0))) {
        state.SkipWithError("the points haven't come");
        return;
    }
    const benchmark_table::AllocationReport report(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(impl.execute(command));
    }
}
BENCHMARK(spectrumResultOfPoints)->Arg(0)->Arg(1)->Arg(100)->Arg(500);

} // namespace

BENCHMARK_MAIN();
