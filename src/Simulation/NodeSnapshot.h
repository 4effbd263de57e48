#pragma once

#include "AlarmEvent.h"
#include "ChannelState.h"
#include "FaultInjector.h"
#include "NodeState.h"
#include "SimulatedNodeOptions.h"

#include <vector>

namespace zyr_simulation
{

/// The whole state of a simulated node at one moment, for people and tests.
struct NodeSnapshot
{
    SimulatedNodeOptions settings; ///< As they are now.
    DspState dsp;
    Routes routes;
    std::vector<Interferer> interferers;         ///< In the order in which they were added.
    std::vector<ChannelState> channels;          ///< Channel 1 first.
    std::vector<zyr_top_api::AlarmEvent> alarms; ///< All known alarms, active or not.
    std::vector<Fault> faults;                   ///< As `SimulatedNode::faultsLeft` tells them.
};

} // namespace zyr_simulation
