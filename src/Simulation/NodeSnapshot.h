#pragma once

#include "AlarmBoard.h"
#include "ChannelState.h"
#include "FaultInjector.h"
#include "NodeState.h"
#include "SimulatedNodeOptions.h"

#include <chrono>
#include <cstdint>
#include <vector>

namespace zyr_simulation
{

/// The whole state of a simulated node at one moment, for people and tests.
struct NodeSnapshot
{
    SimulatedNodeOptions settings; ///< As they are now.
    DspState dsp;
    Routes routes;
    std::vector<Interferer> interferers; ///< In the order in which they were added.
    std::vector<ChannelState> channels;  ///< Channel 1 first.
    std::vector<ReportedAlarm> alarms;   ///< All known alarms, active or not.
    std::vector<Fault> faults;           ///< As `SimulatedNode::faultsLeft` tells them.
    // The node's clocks at that moment, counted from 1970.
    std::chrono::nanoseconds systemTime{0};
    std::chrono::nanoseconds hardwareTime{0};
    std::uint32_t hopLatency_ns = 0; ///< From radio unit to radio unit and through both.
};

} // namespace zyr_simulation
