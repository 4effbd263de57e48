#pragma once

#include "NodeState.h"

namespace zyr_simulation
{

/// Lets a channel carry traffic as though it had done so before the node's control software restarted:
/// radio frame 102, all modulations from 4QAM to 256QAM, the lowest frequencies of the radio unit's band on
/// channel 1 and 56 MHz above them on channel 2, and a transmitter that sends 0 to 15 dBm.
void resumeTraffic(const NodeState& node, ChannelState& channel);

} // namespace zyr_simulation
