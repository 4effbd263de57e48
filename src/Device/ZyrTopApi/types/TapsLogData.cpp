#include "TapsLogData.h"

#include "TextWriter.h"

namespace zyr_top_api
{

std::string TapsLogData::toString() const
{
    TextWriter text;
    text << "TapsLogData: samplesRemaining: " << samplesRemaining << ", timeStamp: " << timeStamp
         << ", minPowerIn: " << minPowerIn << ", maxPowerIn: " << maxPowerIn
         << ", dspRateMebit: " << dspRateMebit << ", dspRateMbit: " << dspRateMbit
         << ", dspMinRateMbit: " << dspMinRateMbit << ", dspMaxRateMbit: " << dspMaxRateMbit
         << ", currentModValue: " << currentModValue << ", idleRate: " << idleRate
         << ", idleRateThreshold: " << idleRateThreshold << ", rateNeeded: " << rateNeeded
         << ", rateMin: " << rateMin << ", deltaPower: " << deltaPower << ", minPowerOut: " << minPowerOut
         << ", maxPowerOut: " << maxPowerOut << ", atpcEnabled: " << atpcEnabled;
    return text.string();
}

} // namespace zyr_top_api
