#pragma once

#include "ITapsControllerLog.h"
#include "SimulatedCollaborator.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kTapsControllerLogOperations{
    "ITapsControllerLog", "startLog",   "stopLog",     "setLogPeriod",
    "dumpLogToFile",      "readSample", "getLogPeriod"};

/// The log of TAPS of a channel. It takes a sample when it is started and then one in each period; the last
/// thousand are kept.
class SimulatedTapsControllerLog final
    : public SimulatedCollaborator<ITapsControllerLog, kTapsControllerLogOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// Drops the samples of an earlier log.
    ESPCResult startLog() override;
    ESPCResult stopLog() override;

    /// Refuses 0.
    ESPCResult setLogPeriod(unsigned seconds) override;

    /// Writes the samples that wait to "taps-log-<channel>.csv" in the folder where the node may write files,
    /// a line for each behind one with the names of the columns. They go on waiting. Fails without a folder.
    ESPCResult dumpLogToFile() override;

    /// Takes the oldest sample out. Fails if there is none.
    ESPCResult readSample(zyr_top_api::TapsLogData& sample) override;
    bool isLogActive() override;
    ESPCResult getLogPeriod(unsigned& seconds) override;

  private:
    TapsLogState& log() const { return channel().tapsLog; }
};

} // namespace zyr_simulation
