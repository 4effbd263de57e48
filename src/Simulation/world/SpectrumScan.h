#pragma once

#include "NodeState.h"

namespace zyr_simulation
{

/// Begins a scan of the spectrum: of the channel, which is twice its spacing about its receive frequency, or
/// of the whole receive band. While it runs the receiver is away from the channel, and the link is down.
/// @param pause  what is added to the time at each point
void beginScan(NodeState& node, ChannelState& channel, bool isSubBand, std::chrono::nanoseconds pause);

/// Ends a scan before its time; what it has found stays.
void stopScan(ChannelState& channel);

/// Measures the points of a scan whose time has come. A radio that goes down ends the scan.
void settleScan(NodeState& node, ChannelState& channel);

} // namespace zyr_simulation
