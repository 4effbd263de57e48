#pragma once

#include "CollaboratorResults.h"
#include "IInterface.h"
#include "TapsLogData.h"

/// The log of TAPS of one channel, published as "ITapsControllerLog_<n>". Called by `TiManageTaps`; unless an
/// operation says otherwise, results from 0x8000 are failures.
class ZYR_EXPORT ITapsControllerLog : public IInterface
{
  public:
    /// Starts to take samples.
    virtual ESPCResult startLog() = 0;

    /// Stops taking samples.
    virtual ESPCResult stopLog() = 0;

    /// Sets the time between two samples, in seconds. The result is ignored.
    virtual ESPCResult setLogPeriod(unsigned seconds) = 0;

    /// Writes the samples to a file of the controller's choice.
    virtual ESPCResult dumpLogToFile() = 0;

    /// Gives the next sample.
    virtual ESPCResult readSample(zyr_top_api::TapsLogData& sample) = 0;

    /// Whether samples are taken.
    virtual bool isLogActive() = 0;

    /// Gives the time between two samples, in seconds.
    virtual ESPCResult getLogPeriod(unsigned& seconds) = 0;
};
