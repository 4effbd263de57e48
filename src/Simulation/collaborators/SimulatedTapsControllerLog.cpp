#include "SimulatedTapsControllerLog.h"

#include <utility>

namespace zyr_simulation
{

ESPCResult SimulatedTapsControllerLog::startLog()
{
    return perform<ESPCResult>("startLog", [&] {
        log().samples.clear();
        log().isActive = true;
        log().nextSampleAt = node().now();
    });
}

ESPCResult SimulatedTapsControllerLog::stopLog()
{
    return perform<ESPCResult>("stopLog", [&] { log().isActive = false; });
}

ESPCResult SimulatedTapsControllerLog::setLogPeriod(unsigned seconds)
{
    return perform<ESPCResult>("setLogPeriod", [&] {
        if (seconds == 0) {
            return eSPC_E_FAILED;
        }
        log().period_s = seconds;
        return eSPC_S_OK;
    });
}

ESPCResult SimulatedTapsControllerLog::dumpLogToFile()
{
    return perform<ESPCResult>("dumpLogToFile", [] { return eSPC_E_FAILED; });
}

ESPCResult SimulatedTapsControllerLog::readSample(zyr_top_api::TapsLogData& sample)
{
    return perform<ESPCResult>("readSample", [&] {
        if (log().samples.empty()) {
            return eSPC_E_FAILED;
        }
        sample = std::move(log().samples.front());
        log().samples.pop_front();
        sample.samplesRemaining = static_cast<std::int32_t>(log().samples.size());
        return eSPC_S_OK;
    });
}

bool SimulatedTapsControllerLog::isLogActive()
{
    return locked([&] { return log().isActive; });
}

ESPCResult SimulatedTapsControllerLog::getLogPeriod(unsigned& seconds)
{
    return perform<ESPCResult>("getLogPeriod", [&] { seconds = log().period_s; });
}

} // namespace zyr_simulation
