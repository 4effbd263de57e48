#include "SimulatedTapsControllerLog.h"

#include "StateFile.h"

#include <deque>
#include <string>
#include <utility>

namespace zyr_simulation
{

namespace
{

using zyr_top_api::TapsLogData;

// The samples as comma-separated values. A time stamp holds no comma.
std::string table(const std::deque<TapsLogData>& samples)
{
    std::string text =
        "timeStamp,minPowerIn,maxPowerIn,dspRateMebit,dspRateMbit,dspMinRateMbit,dspMaxRateMbit,"
        "currentModValue,idleRate,idleRateThreshold,rateNeeded,rateMin,deltaPower,minPowerOut,"
        "maxPowerOut,atpcEnabled\n";
    for (const TapsLogData& sample : samples) {
        text += sample.timeStamp;
        for (const std::int32_t number :
             {sample.minPowerIn, sample.maxPowerIn, sample.dspRateMebit, sample.dspRateMbit,
              sample.dspMinRateMbit, sample.dspMaxRateMbit, sample.currentModValue, sample.idleRate,
              sample.idleRateThreshold, sample.rateNeeded, sample.rateMin, sample.deltaPower,
              sample.minPowerOut, sample.maxPowerOut}) {
            text += "," + std::to_string(number);
        }
        text += sample.atpcEnabled ? ",true\n" : ",false\n";
    }
    return text;
}

} // namespace

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
    if (const auto code = fault("dumpLogToFile")) {
        return static_cast<ESPCResult>(*code);
    }
    const auto [name, text] = locked([&] {
        return std::pair("taps-log-" + std::to_string(channel().number) + ".csv", table(log().samples));
    });
    return writeStateFile(node().settings.stateFolder, name, text) ? eSPC_S_OK : eSPC_E_FAILED;
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
    return read([&] { return log().isActive; });
}

ESPCResult SimulatedTapsControllerLog::getLogPeriod(unsigned& seconds)
{
    return ask<ESPCResult>("getLogPeriod", [&] { seconds = log().period_s; });
}

} // namespace zyr_simulation
